// Images as forms store them: by name.
#pragma once

#include "foundation/qt/zuImageList.h"
#include "foundation/zuExport.h"

#include <QByteArray>
#include <QStringList>

namespace korvane {

/// The image list of a component on a form. Its text is a JSON list of names, in the order of the
/// indexes: of resources or files (":/images/task.svg", anything with a slash) or of icons of the
/// theme ("edit-copy"). Bytes, so that it is not translated.
class KORVANE_WIDGETS_API TNamedImages
{
public:
    /// As it was set; empty to begin with.
    const QByteArray &Text() const { return m_text; }
    /// A text that is no list of names is reported as a warning and changes nothing.
    void SetText(const QByteArray &text);
    /// Null when there are no images.
    const TzuImageList *List() const { return m_list.Count() > 0 ? &m_list : nullptr; }

    /// A text that is no list has no names; what is no name in a list is an empty one.
    static QStringList NamesOf(const QByteArray &text);
    /// Empty for no names.
    static QByteArray TextOf(const QStringList &names);
    /// Null for a file that does not exist and a name that the theme does not know.
    static QIcon IconOf(const QString &name);

private:
    QByteArray m_text;
    TzuImageList m_list;
};

} // namespace korvane
