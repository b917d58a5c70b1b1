// The editor of a list of names: of images, or of menus and actions.
#pragma once

#include <QDialog>
#include <QIcon>
#include <QStringList>

#include <functional>

class QLineEdit;
class QListWidget;
class QListWidgetItem;
class QToolButton;

namespace korvane {

/// Names are taken from those offered or typed; they are removed and reordered.
class TNameListEditor : public QDialog
{
    Q_OBJECT

public:
    /// What the names can be chosen from.
    struct TOffer
    {
        QStringList Names; ///< in the order in which they are listed
        /// The icon beside a name, also of one that was typed; must be set, may return a null icon.
        std::function<QIcon(const QString &)> IconOf;
        QString TypedHint; ///< what may be typed besides
    };

    /// Begins with the names given, offered or not.
    TNameListEditor(const QStringList &names, const TOffer &offer, QWidget *parent);

    /// Those chosen now, in the user's order; one may be there more than once.
    QStringList Names() const;

private:
    QWidget *CreateOffer();
    QWidget *CreateChosen(const QStringList &names);
    QToolButton *AddButton(const QString &text, void (TNameListEditor::*act)());
    void Choose(const QString &name);
    void Filter(const QString &text);
    void Add();
    void Remove();
    void MoveUp() { Move(-1); }
    void MoveDown() { Move(1); }
    void Move(int by);
    void UpdateButtons();

    TOffer m_offer;
    QLineEdit *m_typed = nullptr;
    QListWidget *m_offered = nullptr;
    QListWidget *m_chosen = nullptr;
    QToolButton *m_add = nullptr;
    QToolButton *m_remove = nullptr;
    QToolButton *m_up = nullptr;
    QToolButton *m_down = nullptr;
};

} // namespace korvane
