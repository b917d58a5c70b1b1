// The editor that a grid view opens on a cell.
#pragma once

#include "cellgrid/qt/zuBabGridEditFields.h"
#include "cellgrid/zuBabGridEditHost.h"
#include "foundation/zuExport.h"

#include <QPointer>
#include <QWidget>

class QLabel;
class QKeyEvent;

namespace korvane {

class TBabGridView_Custom;

/// The part of the view that the field shows in, with a frame; what scrolls out of the grid's
/// scrolling part is cut off, and still has the keyboard.
class KORVANE_WIDGETS_API TBabGridEditor : public QWidget
{
    Q_OBJECT

public:
    /// A child of the view, hidden until it is placed.
    TBabGridEditor(TBabGridView_Custom &view, const TEditStart &start);
    ~TBabGridEditor() override;

    /// What the field holds now.
    QString Text() const { return m_field->Text(); }
    /// Owned by the editor.
    IGridField &Field() const { return *m_field; }
    /// The field grows beyond the cell as its text asks for, within the clip.
    void Place(const TRect &cell, const TRect &clip);
    /// Whether a widget is the field, or in it or its choices.
    bool IsOfField(const QWidget *widget) const;
    /// Shows the reason at the field until the text is changed.
    void Refuse(const QString &reason);

protected:
    /// The keys of the field, which are the grid's first; the frame around it.
    bool eventFilter(QObject *object, QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    bool KeyPressed(const QKeyEvent &event);
    void Changed();
    void PlaceHint();

    TBabGridView_Custom &m_view;
    IGridField *m_field;
    QPointer<QLabel> m_hint; ///< why the text was not taken; a sibling
    TEditStart m_start;
};

/// Opens editors for a view.
class KORVANE_WIDGETS_API TBabGridEditOpener : public IBabGridEditHost
{
public:
    /// The view outlives it.
    explicit TBabGridEditOpener(TBabGridView_Custom &view)
        : m_view(view)
    {
    }

    TBabGridEditOpener(const TBabGridEditOpener &) = delete;
    TBabGridEditOpener &operator=(const TBabGridEditOpener &) = delete;
    ~TBabGridEditOpener() override;

    /// The editor that is open, or null.
    TBabGridEditor *Editor() const { return m_editor; }

    void OpenEditor(const TEditStart &start) override;
    std::string EditorText() const override;
    void PlaceEditor(const TRect &cell, const TRect &clip) override;
    void CloseEditor() override;
    void ShowRefusal(const TRect &cell, std::string_view reason) override;

private:
    TBabGridView_Custom &m_view;
    QPointer<TBabGridEditor> m_editor;
};

} // namespace korvane
