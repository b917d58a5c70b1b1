// Walks the elements of an XML plan file.
#pragma once

#include "plan/PlanReader.h"
#include "plan/XmlGuard.h"

#include <QXmlStreamReader>

namespace korvane::planner {

/// A forward reader over guarded XML that knows children only: every child is either entered by
/// asking for its children, read as text, or skipped. Elements are told apart by their local names;
/// those with another prefix than the root's are skipped unseen. Whatever is wrong with the file is
/// thrown as PlanRefusal, and PlanCanceled when the load is no longer wanted.
class PlanXml
{
public:
    PlanXml(QIODevice &source, IProgress &progress);

    /// Enters the root element.
    void EnterRoot();
    /// Goes to the next child of the element that is entered; false at its end, which leaves it.
    /// A child that was neither entered to its end nor read is the one that is entered now.
    bool NextChild();
    void Skip();
    /// Reads on after the root's end has been reached; false when something follows that does not
    /// belong there.
    bool LeaveRoot();
    /// Text of the current element without that of its children; leaves the element.
    QString Text();

    /// Local name of the current element; valid until the next step.
    QStringView Name() const { return m_reader.name(); }
    bool Is(QStringView name) const { return m_reader.name() == name; }
    /// Namespace that the root declares for itself; empty without one.
    const QString &RootNamespace() const { return m_rootNamespace; }
    /// Empty without the attribute; valid until the next step.
    QStringView Attribute(QStringView name) const;
    /// 1-based.
    qint64 Line() const { return m_reader.lineNumber(); }

private:
    void CheckStep();
    [[noreturn]] void ThrowError();

    IProgress &m_progress;
    XmlGuard m_guard;
    QXmlStreamReader m_reader;
    QXmlStreamAttributes m_attributes;
    QString m_rootPrefix;
    QString m_rootNamespace;
    unsigned m_steps = 0;
    bool m_hasRoot = false;
};

/// Root element of the first bytes of a file; empty names when there is none to be seen.
struct XmlRoot
{
    QString Name; ///< local
    QString Namespace;
};
XmlRoot RootOf(const QByteArray &head);

} // namespace korvane::planner
