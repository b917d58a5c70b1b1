#include "RemarksPanel.h"

#include "foundation/qt/zuConvert.h"
#include "foundation/zuTranslate.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QListWidget>

namespace korvane::planner {

namespace {

void CopySelected(const QListWidget &list)
{
    QStringList lines;
    for (const QListWidgetItem *item : list.selectedItems()) {
        lines.append(item->text());
    }
    QApplication::clipboard()->setText(lines.join(u'\n'));
}

} // namespace

RemarksPanel::RemarksPanel(QWidget *parent)
    : QDockWidget(tr("Remarks"), parent)
    , m_list(new QListWidget(this))
{
    setObjectName(QStringLiteral("remarks"));
    setAllowedAreas(Qt::BottomDockWidgetArea | Qt::RightDockWidgetArea);
    m_list->setFrameShape(QFrame::NoFrame);
    m_list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_list->setUniformItemSizes(true);
    setWidget(m_list);

    auto *copy = new QAction(tr("&Copy"), this);
    copy->setShortcut(QKeySequence::Copy);
    copy->setShortcutContext(Qt::WidgetShortcut);
    connect(copy, &QAction::triggered, this, [this] { CopySelected(*m_list); });
    m_list->addAction(copy);
    m_list->setContextMenuPolicy(Qt::ActionsContextMenu);
}

void RemarksPanel::SetRemarks(const PlanRemarks &remarks)
{
    m_list->clear();
    for (const QString &line : remarks.Lines()) {
        m_list->addItem(line);
        m_list->item(m_list->count() - 1)->setToolTip(line);
    }
    const auto count = static_cast<int>(remarks.Items().size() + remarks.Omitted());
    m_countText = ToQt(Translate("Planner", "%Ln remark(s)", nullptr, count));
    if (count == 0) {
        m_countText.clear();
        hide();
    }
}

} // namespace korvane::planner
