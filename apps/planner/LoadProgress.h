// Shows how far a load has come, in a status bar.
#pragma once

#include <QTimer>
#include <QWidget>

class QLabel;
class QProgressBar;

namespace korvane::planner {

/// A progress bar with a button that cancels. It appears only when a load takes a while.
class LoadProgress : public QWidget
{
    Q_OBJECT

public:
    explicit LoadProgress(QWidget *parent = nullptr);

    void Begin(const QString &fileName);
    /// `total` is 0 when it is not known.
    void SetProgress(qint64 done, qint64 total);
    void End();

Q_SIGNALS:
    void cancelRequested();

private:
    QLabel *m_label;
    QProgressBar *m_bar;
    QTimer m_patience; ///< runs until the progress is worth showing
};

} // namespace korvane::planner
