#include "plan/PlanXml.h"

#include "plan/PlanRefusal.h"
#include "plan/PlannerText.h"

namespace korvane::planner {

namespace {

/// Namespace that the reader's current element declares for its own prefix.
QString DeclaredNamespace(const QXmlStreamReader &reader)
{
    const QString declaration = reader.prefix().isEmpty()
                                    ? QStringLiteral("xmlns")
                                    : QStringLiteral("xmlns:%1").arg(reader.prefix());
    return reader.attributes().value(declaration).toString();
}

} // namespace

PlanXml::PlanXml(QIODevice &source, IProgress &progress)
    : m_progress(progress)
    , m_guard(source)
    , m_reader(&m_guard)
{
    // Resolving prefixes costs the product of declarations and elements; local names are enough.
    m_reader.setNamespaceProcessing(false);
}

void PlanXml::EnterRoot()
{
    if (!m_reader.readNextStartElement()) {
        ThrowError();
    }
    m_hasRoot = true;
    m_rootPrefix = m_reader.prefix().toString();
    m_rootNamespace = DeclaredNamespace(m_reader);
    m_attributes = m_reader.attributes();
}

bool PlanXml::NextChild()
{
    CheckStep();
    while (m_reader.readNextStartElement()) {
        if (m_reader.prefix() == m_rootPrefix) {
            m_attributes = m_reader.attributes();
            return true;
        }
        Skip();
    }
    if (m_reader.hasError()) {
        ThrowError();
    }
    return false;
}

bool PlanXml::LeaveRoot()
{
    while (!m_reader.atEnd()) {
        m_reader.readNext();
    }
    if (m_guard.HasFailed()) {
        ThrowError();
    }
    return !m_reader.hasError();
}

void PlanXml::Skip()
{
    CheckStep();
    m_reader.skipCurrentElement();
    if (m_reader.hasError()) {
        ThrowError();
    }
}

QString PlanXml::Text()
{
    CheckStep();
    QString text = m_reader.readElementText(QXmlStreamReader::SkipChildElements);
    if (m_reader.hasError()) {
        ThrowError();
    }
    return text;
}

QStringView PlanXml::Attribute(QStringView name) const
{
    for (const QXmlStreamAttribute &attribute : m_attributes) {
        if (attribute.qualifiedName() == name) {
            return attribute.value();
        }
    }
    return {};
}

void PlanXml::CheckStep()
{
    constexpr unsigned kStepsPerCheck = 256;
    if (++m_steps % kStepsPerCheck == 0 && m_progress.IsCanceled()) {
        throw PlanCanceled();
    }
}

void PlanXml::ThrowError()
{
    if (m_progress.IsCanceled()) {
        throw PlanCanceled();
    }
    if (m_guard.HasFailed()) {
        throw PlanRefusal(m_guard.FailureLine(), m_guard.errorString());
    }
    switch (m_reader.error()) {
    case QXmlStreamReader::PrematureEndOfDocumentError:
        throw PlanRefusal(m_reader.lineNumber(),
                          m_hasRoot ? PlannerText::tr("the file ends too early")
                                    : PlannerText::tr("no XML element in the file"));
    default:
        throw PlanRefusal(m_reader.lineNumber(),
                          PlannerText::tr("not well-formed XML: %1").arg(m_reader.errorString()));
    }
}

XmlRoot RootOf(const QByteArray &head)
{
    QXmlStreamReader reader(head);
    reader.setNamespaceProcessing(false);
    if (!reader.readNextStartElement()) {
        return {};
    }
    return {reader.name().toString(), DeclaredNamespace(reader)};
}

} // namespace korvane::planner
