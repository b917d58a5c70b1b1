#include "gantt/qt/zuGantTabs.h"

#include "gantt/qt/zuGantComBasic.h"
#include "gantt/qt/zuGantLines.h"

#include <QBoxLayout>
#include <QPointer>
#include <QScopeGuard>
#include <QSignalBlocker>
#include <QStackedWidget>
#include <QTabBar>

#include <algorithm>

namespace korvane {

TGantPageControl::TGantPageControl(QWidget *parent)
    : QWidget(parent)
    , m_tabs(new QTabBar(this))
    , m_sheets(new QStackedWidget(this))
    , m_gantSheet(new QWidget)
{
    m_tabs->setDocumentMode(true);
    m_tabs->setExpanding(false);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_tabs);
    layout->addWidget(m_sheets, 1);
    auto *sheetLayout = new QHBoxLayout(m_gantSheet);
    sheetLayout->setContentsMargins(0, 0, 0, 0);
    sheetLayout->setSpacing(0);
    AddSheet(m_gantSheet, QStringLiteral("Gant"));
    connect(m_tabs, &QTabBar::currentChanged, this, &TGantPageControl::CurrentTabChanged);
    connect(m_sheets, &QStackedWidget::widgetRemoved, this, &TGantPageControl::SheetRemoved);
}

TGantPageControl::~TGantPageControl()
{
    // What the sheets do on their way out is nobody's concern any more.
    m_tabs->disconnect(this);
    m_sheets->disconnect(this);
}

int TGantPageControl::AddSheet(QWidget *sheet, const QString &caption)
{
    sheet->setWindowTitle(caption);
    const int index = m_sheets->addWidget(sheet);
    m_tabs->addTab(caption);
    connect(sheet, &QWidget::windowTitleChanged, this, [this, sheet](const QString &title) {
        m_tabs->setTabText(m_sheets->indexOf(sheet), title);
    });
    return index;
}

void TGantPageControl::Add(TMyContainer container)
{
    QWidget *sheet = container.Sheet;
    if (sheet == nullptr || m_sheets->indexOf(sheet) >= 0) {
        return;
    }
    m_containers.push_back(std::make_shared<TMyContainer>(std::move(container)));
    AddSheet(sheet, sheet->windowTitle());
}

QWidget *TGantPageControl::ActivePage() const
{
    return m_sheets->currentWidget();
}

void TGantPageControl::SetActivePage(QWidget *sheet)
{
    m_tabs->setCurrentIndex(m_sheets->indexOf(sheet));
}

void TGantPageControl::CurrentTabChanged(int index)
{
    const int shown = m_sheets->currentIndex();
    if (index == shown || index < 0) {
        return;
    }
    const QPointer<TGantPageControl> self(this);
    const QPointer<QWidget> wanted(m_sheets->widget(index));
    bool allow = true;
    OnChanging(this, allow);
    if (self.isNull()) {
        return;
    }
    if (allow && !wanted.isNull()) {
        m_sheets->setCurrentWidget(wanted);
    }
    {
        const QSignalBlocker blocker(m_tabs);
        m_tabs->setCurrentIndex(m_sheets->currentIndex());
    }
    if (allow) {
        OnChange(this);
    }
}

void TGantPageControl::SheetRemoved(int index)
{
    // The stack has gone on to another sheet by itself; nobody is left to ask.
    {
        const QSignalBlocker blocker(m_tabs);
        m_tabs->removeTab(index);
        m_tabs->setCurrentIndex(m_sheets->currentIndex());
    }
    std::erase_if(m_containers, [this](const std::shared_ptr<TMyContainer> &each) {
        return m_sheets->indexOf(each->Sheet) < 0;
    });
    OnChange(this);
}

// --- of the chart --------------------------------------------------------------------------------

void TzuGant_ComBasic::AddTabSheet(QWidget *sheet, TOnTabRowChange onRowChange,
                                   TOnTabChanging onChanging, TOnTabChange onChange)
{
    m_pages->Add({sheet, std::move(onRowChange), std::move(onChanging), std::move(onChange)});
}

bool TzuGant_ComBasic::GetTabSheetsONOFF() const
{
    return !m_pages->isHidden();
}

void TzuGant_ComBasic::SetTabSheetsONOFF(bool on)
{
    if (on == GetTabSheetsONOFF()) {
        return;
    }
    QWidget &owner = on ? m_pages->GantSheet() : static_cast<QWidget &>(*this);
    auto *layout = static_cast<QBoxLayout *>(owner.layout());
    const bool scrollHidden = m_scrollHolder->isHidden();
    layout->addWidget(m_areaHolder, 1);
    layout->addWidget(m_scrollHolder);
    m_areaHolder->show();
    m_scrollHolder->setVisible(!scrollHidden);
    m_pages->setVisible(on);
    LevelTreeSpacer();
    HandleTreeAlign();
}

void TzuGant_ComBasic::LevelTreeSpacer()
{
    int height = m_scaler->height();
    if (GetTabSheetsONOFF()) {
        m_pages->layout()->activate();
        height += m_pages->Tabs().sizeHint().height();
    }
    if (UseGridNotTree()) {
        height = std::max(0, height - HeadHeightOf(*m_grid)); // the header ends with the axis
    }
    m_treeSpacer->setFixedHeight(height);
}

/// Calls every container of the sheet in front; `call` may add and remove sheets and destroy the
/// chart.
template <typename Call>
void TzuGant_ComBasic::ForActivePage(const Call &call)
{
    const QPointer<TzuGant_ComBasic> self(this);
    const QWidget *page = m_pages->ActivePage();
    const TGantPageControl::TContainers containers = m_pages->Containers();
    for (const auto &each : containers) {
        if (!self.isNull() && !each->Sheet.isNull() && each->Sheet == page) {
            call(*each);
        }
    }
}

void TzuGant_ComBasic::PageChanging(TGantPageControl * /*sender*/, bool &allow)
{
    allow = true;
    ForActivePage([&allow](const TMyContainer &each) {
        QWidget *sheet = each.Sheet;
        each.OnChanging(sheet, allow);
        each.OnChange(sheet);
    });
}

void TzuGant_ComBasic::PageChange(TGantPageControl * /*sender*/)
{
    const QPointer<TzuGant_ComBasic> self(this);
    ForActivePage([](const TMyContainer &each) { each.OnChange(each.Sheet); });
    if (!self.isNull()) {
        ChangeInTree();
    }
}

void TzuGant_ComBasic::ChangeInTree()
{
    const QPointer<TzuGant_ComBasic> self(this);
    const TGantPageControl::TContainers containers = m_pages->Containers();
    for (const auto &each : containers) {
        if (self.isNull()) {
            return;
        }
        each->OnRowChange(GetActiveGantRow());
    }
}

} // namespace korvane
