// The field in which a caption is edited in place.
#pragma once

#include "foundation/zuExport.h"

#include <QLineEdit>

class QLabel;

namespace korvane {

/// Over the caption, up to the right edge of the tree. A text that cannot be stored stays in the
/// field with the reason below it, until it is mended or Escape is pressed.
class KORVANE_WIDGETS_API TTreeCaptionEdit : public QLineEdit
{
    Q_OBJECT

public:
    /// Empty; the delegate fills it.
    explicit TTreeCaptionEdit(QWidget *parent);
    ~TTreeCaptionEdit() override;

    /// Whether the text is too long, or was refused since it was last changed.
    bool IsRefused() const { return m_refused; }
    /// Shows the reason below the field until the text is changed.
    void Refuse(const QString &reason);

protected:
    /// The field, and the reason that stays below it.
    void paintEvent(QPaintEvent *event) override;
    void moveEvent(QMoveEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void CheckLength();
    void PlaceHint();

    QLabel *m_hint = nullptr;
    bool m_refused = false;
};

} // namespace korvane
