// The editor of a grid's columns, sub-grids or cell layouts.
#pragma once

#include "design/qt/zuValueEditors.h"

#include <QDialog>
#include <QJsonArray>
#include <QJsonObject>
#include <QMap>

class QListWidget;
class QToolButton;

namespace korvane {

class TzuGrid;

/// Adds, removes and reorders items, and sets all their properties, those of several selected items
/// at once. A grid below shows what comes of it; widths and places of columns can be dragged there.
/// The grid edited is only read: what was done is in Text.
class TCollectionEditor : public QDialog
{
    Q_OBJECT

public:
    /// `collection` is `Columns`, `SubGrids` or `CellLayouts`. The grid outlives the editor.
    TCollectionEditor(const TzuGrid &grid, const QString &collection, QWidget *parent);
    ~TCollectionEditor() override;

    /// Whether it is the name of a collection.
    static bool CanEdit(const QString &collection);

    /// The collection as forms store it.
    QByteArray Text() const;
    /// Whether the text is another one than in the beginning.
    bool IsChanged() const { return Text() != m_textBefore; }

private:
    void CreateControls();
    QWidget *CreateList();
    QWidget *CreateProperties();
    QToolButton *AddButton(const QString &icon, const QString &text, const QKeySequence &key,
                           void (TCollectionEditor::*act)());

    void AddItem();
    void RemoveItems();
    void MoveUp() { MoveItems(-1); }
    void MoveDown() { MoveItems(1); }
    void MoveItems(int by);
    void TakeOrderOfList();
    void SetProperty(const TItemProperty &property, const QJsonValue &value);
    void EditColumns();

    /// Brings the list, the properties and the preview up to date.
    void ShowItems(const QList<int> &selected);
    void ShowCurrent();
    void ShowPreview();
    void TakeFromPreview();
    QString Caption(int index) const;
    QList<int> SelectedRows() const;

    QString m_collection;
    QJsonArray m_items;
    QByteArray m_textBefore;
    TItemNames m_names;
    QMap<QString, TValueEditor> m_editors;
    QListWidget *m_list = nullptr;
    QWidget *m_properties = nullptr;
    QToolButton *m_remove = nullptr;
    QToolButton *m_up = nullptr;
    QToolButton *m_down = nullptr;
    TzuGrid *m_preview = nullptr;
    bool m_showing = false; ///< controls are being filled
};

} // namespace korvane
