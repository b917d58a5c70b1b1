#include "LoadProgress.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

namespace korvane::planner {

namespace {

constexpr int kPatience = 250; // milliseconds
constexpr int kSteps = 1000;
constexpr int kBarWidth = 160;

} // namespace

LoadProgress::LoadProgress(QWidget *parent)
    : QWidget(parent)
    , m_label(new QLabel(this))
    , m_bar(new QProgressBar(this))
    , m_cancel(new QPushButton(tr("Cancel"), this))
{
    m_cancel->setObjectName(QStringLiteral("cancelLoad"));
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_label);
    layout->addWidget(m_bar);
    layout->addWidget(m_cancel);
    m_bar->setFixedWidth(kBarWidth);
    m_patience.setSingleShot(true);
    m_patience.setInterval(kPatience);
    connect(&m_patience, &QTimer::timeout, this, &QWidget::show);
    connect(m_cancel, &QPushButton::clicked, this, &LoadProgress::cancelRequested);
    hide();
}

void LoadProgress::SetCancelable(bool cancelable)
{
    m_cancel->setVisible(cancelable);
}

void LoadProgress::Begin(const QString &text)
{
    m_label->setText(text);
    m_bar->setRange(0, 0);
    m_patience.start();
}

void LoadProgress::SetProgress(qint64 done, qint64 total)
{
    if (total > 0) {
        m_bar->setRange(0, kSteps);
        m_bar->setValue(static_cast<int>(qMin(done, total) * kSteps / total));
    }
}

void LoadProgress::End()
{
    m_patience.stop();
    hide();
}

} // namespace korvane::planner
