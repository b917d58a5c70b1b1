#include "design/qt/zuNameListEditor.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

namespace korvane {

namespace {

QVBoxLayout *TightColumn(QWidget &side)
{
    auto *layout = new QVBoxLayout(&side);
    layout->setContentsMargins(0, 0, 0, 0);
    return layout;
}

} // namespace

TNameListEditor::TNameListEditor(const QStringList &names, const TOffer &offer, QWidget *parent)
    : QDialog(parent)
    , m_offer(offer)
{
    auto *sides = new QHBoxLayout;
    sides->addWidget(CreateOffer(), 1);
    sides->addWidget(CreateChosen(names), 1);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(sides, 1);
    layout->addWidget(buttons);
    for (QPushButton *button : buttons->findChildren<QPushButton *>()) {
        button->setAutoDefault(false); // Enter takes what was typed
    }
    resize(560, 360);
    UpdateButtons();
    m_typed->setFocus();
}

QStringList TNameListEditor::Names() const
{
    QStringList names;
    for (int row = 0; row < m_chosen->count(); ++row) {
        names.append(m_chosen->item(row)->text());
    }
    return names;
}

QToolButton *TNameListEditor::AddButton(const QString &text, void (TNameListEditor::*act)())
{
    auto *button = new QToolButton;
    button->setText(text);
    connect(button, &QToolButton::clicked, this, act);
    return button;
}

QWidget *TNameListEditor::CreateOffer()
{
    auto *side = new QWidget;
    auto *layout = TightColumn(*side);
    m_typed = new QLineEdit;
    m_typed->setPlaceholderText(m_offer.TypedHint);
    m_typed->setClearButtonEnabled(true);
    m_offered = new QListWidget;
    m_offered->setSelectionMode(QAbstractItemView::ExtendedSelection);
    for (const QString &name : m_offer.Names) {
        new QListWidgetItem(m_offer.IconOf(name), name, m_offered);
    }
    m_add = AddButton(tr("Add"), &TNameListEditor::Add);
    connect(m_typed, &QLineEdit::textChanged, this, &TNameListEditor::Filter);
    connect(m_typed, &QLineEdit::returnPressed, this, &TNameListEditor::Add);
    connect(m_offered, &QListWidget::itemSelectionChanged, this, &TNameListEditor::UpdateButtons);
    connect(m_offered, &QListWidget::itemDoubleClicked, this,
            [this](const QListWidgetItem *item) { Choose(item->text()); });
    auto *label = new QLabel(tr("&Offered:"));
    label->setBuddy(m_typed);
    layout->addWidget(label);
    layout->addWidget(m_typed);
    layout->addWidget(m_offered, 1);
    layout->addWidget(m_add);
    return side;
}

QWidget *TNameListEditor::CreateChosen(const QStringList &names)
{
    auto *side = new QWidget;
    auto *layout = TightColumn(*side);
    m_chosen = new QListWidget;
    m_chosen->setDragDropMode(QAbstractItemView::InternalMove);
    for (const QString &name : names) {
        new QListWidgetItem(m_offer.IconOf(name), name, m_chosen);
    }
    auto *buttons = new QHBoxLayout;
    m_remove = AddButton(tr("Remove"), &TNameListEditor::Remove);
    m_up = AddButton(tr("Up"), &TNameListEditor::MoveUp);
    m_down = AddButton(tr("Down"), &TNameListEditor::MoveDown);
    for (QToolButton *button : {m_remove, m_up, m_down}) {
        buttons->addWidget(button);
    }
    buttons->addStretch();
    connect(m_chosen, &QListWidget::currentRowChanged, this, &TNameListEditor::UpdateButtons);
    auto *label = new QLabel(tr("&Chosen:"));
    label->setBuddy(m_chosen);
    layout->addWidget(label);
    layout->addWidget(m_chosen, 1);
    layout->addLayout(buttons);
    return side;
}

void TNameListEditor::Choose(const QString &name)
{
    const int at = m_chosen->currentRow() < 0 ? m_chosen->count() : m_chosen->currentRow() + 1;
    m_chosen->insertItem(at, new QListWidgetItem(m_offer.IconOf(name), name));
    m_chosen->setCurrentRow(at);
    UpdateButtons();
}

void TNameListEditor::Filter(const QString &text)
{
    for (int row = 0; row < m_offered->count(); ++row) {
        QListWidgetItem *item = m_offered->item(row);
        item->setHidden(!item->text().contains(text, Qt::CaseInsensitive));
        if (item->isHidden()) {
            item->setSelected(false);
        }
    }
    UpdateButtons();
}

/// What is selected, or else what was typed.
void TNameListEditor::Add()
{
    const QList<QListWidgetItem *> selected = m_offered->selectedItems();
    for (const QListWidgetItem *item : selected) {
        Choose(item->text());
    }
    const QString typed = m_typed->text().trimmed();
    if (selected.isEmpty() && !typed.isEmpty()) {
        Choose(typed);
        m_typed->clear();
    }
    m_offered->clearSelection();
}

void TNameListEditor::Remove()
{
    delete m_chosen->currentItem();
    UpdateButtons();
}

void TNameListEditor::Move(int by)
{
    const int from = m_chosen->currentRow();
    const int to = from + by;
    if (from >= 0 && to >= 0 && to < m_chosen->count()) {
        m_chosen->insertItem(to, m_chosen->takeItem(from));
        m_chosen->setCurrentRow(to);
    }
}

void TNameListEditor::UpdateButtons()
{
    if (m_chosen == nullptr) {
        return; // the controls are being made
    }
    const int row = m_chosen->currentRow();
    m_add->setEnabled(!m_offered->selectedItems().isEmpty()
                      || !m_typed->text().trimmed().isEmpty());
    m_remove->setEnabled(row >= 0);
    m_up->setEnabled(row > 0);
    m_down->setEnabled(row >= 0 && row + 1 < m_chosen->count());
}

} // namespace korvane
