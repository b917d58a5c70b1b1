// Shows how far a load or a save has come, in a status bar.
#pragma once

#include <QTimer>
#include <QWidget>

class QLabel;
class QProgressBar;
class QPushButton;

namespace korvane::planner {

/// A progress bar, for what can be cancelled with a button that does so. It appears only when the
/// work takes a while.
class LoadProgress : public QWidget
{
    Q_OBJECT

public:
    explicit LoadProgress(QWidget *parent = nullptr);

    /// `text` says what is done.
    void Begin(const QString &text);
    void SetCancelable(bool cancelable);
    /// `total` is 0 when it is not known.
    void SetProgress(qint64 done, qint64 total);
    void End();

Q_SIGNALS:
    void cancelRequested();

private:
    QLabel *m_label;
    QProgressBar *m_bar;
    QPushButton *m_cancel;
    QTimer m_patience; ///< runs until the progress is worth showing
};

} // namespace korvane::planner
