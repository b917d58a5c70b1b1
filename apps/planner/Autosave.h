// Copies of plans that have changed and are not saved yet.
#pragma once

#include <QDateTime>
#include <QObject>
#include <QTimer>

#include <future>
#include <memory>
#include <optional>

class QLockFile;

namespace korvane::planner {

class PlanDocument;

/// Writes a copy of a document's plan some seconds after the last change, and every two minutes
/// while the changes do not cease, in a thread of its own. The copy lies in the user's data folder
/// under a name made from the plan's file name. It goes when the plan is saved or given up, so that
/// one that is there when a plan is opened is what a planner left that did not come to that.
///
/// As long as the document shows a file, a lock keeps other planners from it: they neither write
/// copies for it nor save into it.
class Autosave : public QObject
{
    Q_OBJECT

public:
    /// The document is observed.
    explicit Autosave(PlanDocument &document, QObject *parent = nullptr);
    /// Leaves the copy of a modified plan.
    ~Autosave() override;

    /// Where the copy of a file lies.
    static QString CopyOf(const QString &fileName);
    /// The file of the latest copy that a planner left behind; empty without any.
    static QString LeftBehind();

    /// When the copy that lies there was written, if that is later than the document's file was.
    std::optional<QDateTime> Recoverable() const;
    /// Takes the copy away; one that is being written, when it is complete.
    void Discard();

    /// Whether this is the planner that may save into the document's file. Asks again for a lock
    /// that another planner had.
    bool HoldsLock();

    /// Starts to write a copy when the plan is modified.
    void WriteCopy();
    /// Until the copy that is being written is complete.
    void Wait();

Q_SIGNALS:
    /// A copy could not be written.
    void failed(const QString &reason);

private:
    void FollowDocument();
    void PlanChanged();
    bool IsWriting() const;

    PlanDocument &m_document;
    QString m_fileName; ///< for which the copy is
    std::unique_ptr<QLockFile> m_lock;
    QTimer m_quiet;
    QTimer m_latest;
    std::future<std::optional<QString>> m_job;
};

} // namespace korvane::planner
