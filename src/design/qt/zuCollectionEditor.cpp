#include "design/qt/zuCollectionEditor.h"

#include "design/qt/zuSample.h"
#include "grid/qt/zuGrid.h"
#include "grid/qt/zuGridJson.h"

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QScrollArea>
#include <QSplitter>
#include <QStyle>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace korvane {

namespace {

QStringList NamesOf(const QJsonArray &items)
{
    QStringList names;
    for (const QJsonValue &item : items) {
        names.append(item.toObject()["Name"].toString());
    }
    return names;
}

QString Title(const QString &collection)
{
    return collection == u"Columns"    ? TCollectionEditor::tr("Columns")
           : collection == u"SubGrids" ? TCollectionEditor::tr("Sub-grids")
                                       : TCollectionEditor::tr("Cell layouts");
}

/// A first name that no other item has.
QString NewName(const QString &collection, const QJsonArray &items)
{
    const QString base = collection == u"Columns"    ? TCollectionEditor::tr("Column %1")
                         : collection == u"SubGrids" ? QStringLiteral("SubGrid%1")
                                                     : QStringLiteral("Layout%1");
    QStringList taken = NamesOf(items);
    for (const QJsonValue &item : items) {
        taken.append(item.toObject()["HeaderText"].toString());
    }
    int number = static_cast<int>(items.size()) + 1;
    while (taken.contains(base.arg(number), Qt::CaseInsensitive)) {
        ++number;
    }
    return base.arg(number);
}

} // namespace

TCollectionEditor::TCollectionEditor(const TzuGrid &grid, const QString &collection,
                                     QWidget *parent)
    : QDialog(parent)
    , m_collection(collection)
    , m_textBefore(GridCollectionToText(grid, collection))
{
    const QJsonObject json = GridToJson(grid);
    m_items = json[collection].toArray();
    m_names = {NamesOf(json["CellLayouts"].toArray()), NamesOf(json["SubGrids"].toArray())};
    setWindowTitle(Title(collection));

    m_preview = new TzuGrid;
    ShowSample(*m_preview, QString());
    GridFromJson(*m_preview, json);
    m_preview->SetHasHeaders(grid.HasHeaders());
    m_preview->SetHasInfoCol(grid.HasInfoCol());
    m_preview->SetExtendLastColumnToWidth(grid.ExtendLastColumnToWidth());
    m_preview->OnMouseUp = [this](TzuOffscreenPaint *, TMouseButton, TShiftState, int, int) {
        QMetaObject::invokeMethod(this, &TCollectionEditor::TakeFromPreview, Qt::QueuedConnection);
    };
    CreateControls();
    ShowItems(m_items.isEmpty() ? QList<int>() : QList<int>{0});
}

TCollectionEditor::~TCollectionEditor() = default;

bool TCollectionEditor::CanEdit(const QString &collection)
{
    return !ItemProperties(collection).empty();
}

QByteArray TCollectionEditor::Text() const
{
    TzuGrid grid;
    GridFromJson(grid, {{m_collection, m_items}});
    return GridCollectionToText(grid, m_collection);
}

// --- controls ------------------------------------------------------------------------------------

void TCollectionEditor::CreateControls()
{
    auto *upper = new QSplitter;
    upper->addWidget(CreateList());
    upper->addWidget(CreateProperties());
    upper->setStretchFactor(1, 1);
    upper->setChildrenCollapsible(false);

    auto *lower = new QWidget;
    auto *lowerLayout = new QVBoxLayout(lower);
    lowerLayout->setContentsMargins(0, 0, 0, 0);
    lowerLayout->addWidget(new QLabel(tr("Preview:")));
    lowerLayout->addWidget(m_preview, 1);

    auto *whole = new QSplitter(Qt::Vertical);
    whole->addWidget(upper);
    whole->addWidget(lower);
    whole->setStretchFactor(0, 3);
    whole->setStretchFactor(1, 2);
    whole->setChildrenCollapsible(false);

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(whole, 1);
    layout->addWidget(buttons);
    resize(680, 620);
}

QToolButton *TCollectionEditor::AddButton(const QString &icon, const QString &text,
                                          const QKeySequence &key, void (TCollectionEditor::*act)())
{
    auto *button = new QToolButton;
    const QIcon themed = QIcon::fromTheme(icon);
    button->setIcon(themed);
    button->setText(text);
    button->setToolButtonStyle(themed.isNull() ? Qt::ToolButtonTextOnly
                                               : Qt::ToolButtonTextBesideIcon);
    button->setToolTip(QStringLiteral("%1 (%2)").arg(QString(text).remove(u'&'),
                                                     key.toString(QKeySequence::NativeText)));
    button->setShortcut(key);
    connect(button, &QToolButton::clicked, this, act);
    return button;
}

QWidget *TCollectionEditor::CreateList()
{
    auto *side = new QWidget;
    auto *layout = new QVBoxLayout(side);
    layout->setContentsMargins(0, 0, 0, 0);
    m_list = new QListWidget;
    m_list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_list->setDragDropMode(QAbstractItemView::InternalMove);
    connect(m_list, &QListWidget::itemSelectionChanged, this, &TCollectionEditor::ShowCurrent);
    connect(m_list, &QListWidget::currentRowChanged, this, &TCollectionEditor::ShowCurrent);
    connect(m_list->model(), &QAbstractItemModel::rowsMoved, this,
            &TCollectionEditor::TakeOrderOfList, Qt::QueuedConnection);

    auto *buttons = new QHBoxLayout;
    buttons->addWidget(AddButton(QStringLiteral("list-add"), tr("Add"), Qt::Key_Insert,
                                 &TCollectionEditor::AddItem));
    m_remove = AddButton(QStringLiteral("list-remove"), tr("Remove"), Qt::CTRL | Qt::Key_Delete,
                         &TCollectionEditor::RemoveItems);
    m_up = AddButton(QStringLiteral("go-up"), tr("Up"), Qt::ALT | Qt::Key_Up,
                     &TCollectionEditor::MoveUp);
    m_down = AddButton(QStringLiteral("go-down"), tr("Down"), Qt::ALT | Qt::Key_Down,
                       &TCollectionEditor::MoveDown);
    for (QToolButton *button : {m_remove, m_up, m_down}) {
        buttons->addWidget(button);
    }
    buttons->addStretch();
    layout->addWidget(m_list, 1);
    layout->addLayout(buttons);
    return side;
}

QWidget *TCollectionEditor::CreateProperties()
{
    m_properties = new QWidget;
    auto *layout = new QFormLayout(m_properties);
    for (const TItemProperty &property : ItemProperties(m_collection)) {
        const TValueEditor editor =
            CreateValueEditor(property, m_names, [this, &property](const QJsonValue &value) {
                SetProperty(property, value);
            });
        const QString name = QString::fromLatin1(property.Name);
        editor.Widget->setObjectName(name);
        editor.Widget->setToolTip(QCoreApplication::translate("TzuDesign", property.Hint));
        auto *label = new QLabel(name + u':');
        label->setToolTip(QCoreApplication::translate("TzuDesign", property.Hint));
        label->setBuddy(editor.Widget);
        layout->addRow(label, editor.Widget);
        m_editors[name] = editor;
    }
    auto *area = new QScrollArea;
    area->setWidget(m_properties);
    area->setWidgetResizable(true);
    return area;
}

// --- changes -------------------------------------------------------------------------------------

QList<int> TCollectionEditor::SelectedRows() const
{
    QList<int> rows;
    for (const QListWidgetItem *item : m_list->selectedItems()) {
        rows.append(m_list->row(item));
    }
    std::sort(rows.begin(), rows.end());
    return rows;
}

void TCollectionEditor::AddItem()
{
    constexpr int kWidth = 90; // room for the caption
    const QString caption =
        m_collection == u"Columns" ? QStringLiteral("HeaderText") : QStringLiteral("Name");
    QJsonObject item = NewGridItemJson(m_collection);
    item[caption] = NewName(m_collection, m_items);
    if (m_collection == u"Columns") {
        item["Width"] = kWidth;
    }
    const int at =
        m_list->currentRow() < 0 ? static_cast<int>(m_items.size()) : m_list->currentRow() + 1;
    m_items.insert(at, item);
    ShowItems({at});
    if (auto *line = qobject_cast<QLineEdit *>(m_editors[caption].Widget)) {
        line->setFocus();
        line->selectAll();
    }
}

void TCollectionEditor::RemoveItems()
{
    const QList<int> rows = SelectedRows();
    for (auto row = rows.crbegin(); row != rows.crend(); ++row) {
        m_items.removeAt(*row);
    }
    const int next = rows.isEmpty() ? 0 : std::min<int>(rows.first(), m_items.size() - 1);
    ShowItems(m_items.isEmpty() ? QList<int>() : QList<int>{next});
}

void TCollectionEditor::MoveItems(int by)
{
    QList<int> rows = SelectedRows();
    const bool fits =
        !rows.isEmpty() && rows.first() + by >= 0 && rows.last() + by < m_items.size();
    if (!fits) {
        return;
    }
    if (by > 0) {
        std::reverse(rows.begin(), rows.end());
    }
    for (int &row : rows) {
        const QJsonValue item = m_items.takeAt(row);
        row += by;
        m_items.insert(row, item);
    }
    ShowItems(rows);
}

/// Items were dragged within the list.
void TCollectionEditor::TakeOrderOfList()
{
    QJsonArray items;
    for (int row = 0; row < m_list->count(); ++row) {
        items.append(m_items.at(m_list->item(row)->data(Qt::UserRole).toInt()));
    }
    m_items = items;
    ShowItems(SelectedRows());
}

void TCollectionEditor::SetProperty(const TItemProperty &property, const QJsonValue &value)
{
    if (m_showing) {
        return;
    }
    if (property.Kind == TItemPropertyKind::Columns) {
        EditColumns();
        return;
    }
    for (const int row : SelectedRows()) {
        QJsonObject item = m_items.at(row).toObject();
        item[QLatin1String(property.Name)] = value;
        m_items.replace(row, item);
        m_list->item(row)->setText(Caption(row));
    }
    ShowPreview();
}

/// The preview shows the sub-grid as a grid of its own, which is what the other editor needs.
void TCollectionEditor::EditColumns()
{
    const int row = m_list->currentRow();
    if (row < 0) {
        return;
    }
    TCollectionEditor editor(*m_preview, QStringLiteral("Columns"), this);
    editor.setWindowTitle(tr("Columns of %1").arg(Caption(row)));
    if (editor.exec() == QDialog::Accepted) {
        QJsonObject item = m_items.at(row).toObject();
        item["Columns"] = editor.m_items;
        m_items.replace(row, item);
        ShowItems({row});
    }
}

// --- what is shown -------------------------------------------------------------------------------

QString TCollectionEditor::Caption(int index) const
{
    const QJsonObject item = m_items.at(index).toObject();
    const QString name =
        item[m_collection == u"Columns" ? QLatin1String("HeaderText") : QLatin1String("Name")]
            .toString();
    return name.isEmpty() ? tr("(unnamed)") : name;
}

void TCollectionEditor::ShowItems(const QList<int> &selected)
{
    m_showing = true;
    m_list->clear();
    for (int row = 0; row < m_items.size(); ++row) {
        auto *item = new QListWidgetItem(Caption(row), m_list);
        item->setData(Qt::UserRole, row);
    }
    if (!selected.isEmpty()) {
        m_list->setCurrentRow(selected.first(), QItemSelectionModel::NoUpdate);
    }
    for (const int row : selected) {
        m_list->item(row)->setSelected(true);
    }
    m_showing = false;
    ShowCurrent();
}

void TCollectionEditor::ShowCurrent()
{
    if (m_showing) {
        return;
    }
    m_showing = true;
    const QList<int> rows = SelectedRows();
    m_properties->setEnabled(!rows.isEmpty());
    m_remove->setEnabled(!rows.isEmpty());
    m_up->setEnabled(!rows.isEmpty() && rows.first() > 0);
    m_down->setEnabled(!rows.isEmpty() && rows.last() + 1 < m_items.size());
    const int row = rows.contains(m_list->currentRow()) ? m_list->currentRow()
                    : rows.isEmpty()                    ? -1
                                                        : rows.first();
    const QJsonObject item = row < 0 ? NewGridItemJson(m_collection) : m_items.at(row).toObject();
    for (auto editor = m_editors.cbegin(); editor != m_editors.cend(); ++editor) {
        editor->Show(item[editor.key()]);
    }
    m_showing = false;
    ShowPreview();
}

void TCollectionEditor::ShowPreview()
{
    QJsonObject shown{{m_collection, m_items}};
    if (m_collection == u"SubGrids") {
        const int row = m_list->currentRow();
        const QJsonObject item = row < 0 ? QJsonObject() : m_items.at(row).toObject();
        shown["Columns"] = item["Columns"].toArray();
        m_preview->SetHasHeaders(item["HasHeaders"].toBool());
        m_preview->SetHasInfoCol(item["HasInfoCol"].toBool());
        m_preview->SetExtendLastColumnToWidth(item["ExtendLastColumnToWidth"].toBool());
    } else if (m_collection == u"CellLayouts") {
        QJsonArray columns;
        for (const QString &name : NamesOf(m_items)) {
            constexpr int kWidth = 110;
            columns.append(
                QJsonObject{{"HeaderText", name}, {"LayoutName", name}, {"Width", kWidth}});
        }
        shown["Columns"] = columns;
    }
    GridFromJson(*m_preview, shown);
}

/// The user may have dragged a column.
void TCollectionEditor::TakeFromPreview()
{
    if (m_collection != u"Columns") {
        return;
    }
    const QJsonArray items = GridToJson(*m_preview)["Columns"].toArray();
    if (items != m_items && items.size() == m_items.size()) {
        m_items = items;
        ShowItems(SelectedRows());
    }
}

} // namespace korvane
