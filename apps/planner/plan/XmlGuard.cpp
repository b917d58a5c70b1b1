#include "plan/XmlGuard.h"

#include "plan/PlannerText.h"

#include <string_view>

namespace korvane::planner {

namespace {

constexpr char kOtherCharacter = 'x';

} // namespace

XmlGuard::XmlGuard(QIODevice &source)
    : m_source(source)
{
    open(QIODevice::ReadOnly | QIODevice::Unbuffered);
}

qint64 XmlGuard::readData(char *data, qint64 maxSize)
{
    if (m_hasFailed) {
        return -1;
    }
    const qint64 size = m_source.read(data, maxSize);
    if (size < 0) {
        m_hasFailed = true;
        setErrorString(m_source.errorString());
        return -1;
    }
    return Scan(data, size) ? size : -1;
}

bool XmlGuard::Scan(const char *data, qint64 size)
{
    for (qint64 i = 0; i < size; ++i) {
        const auto byte = static_cast<unsigned char>(data[i]);
        if (m_encoding == Encoding::Unknown) {
            DetectEncoding(byte);
        }
        if (m_encoding == Encoding::Bytes) {
            if (byte != 0 && !Feed(data[i])) {
                return false;
            }
            continue;
        }
        m_hasPendingByte = !m_hasPendingByte;
        if (m_hasPendingByte) {
            m_pendingByte = byte;
            continue;
        }
        const bool isBigEndian = m_encoding == Encoding::Utf16BigEndian;
        const unsigned char high = isBigEndian ? m_pendingByte : byte;
        const unsigned char low = isBigEndian ? byte : m_pendingByte;
        if (!Feed(high == 0 ? static_cast<char>(low) : kOtherCharacter)) {
            return false;
        }
    }
    return true;
}

/// By the first byte of a byte order mark. UTF-16 without one has its zero bytes skipped, which
/// leaves the markup.
void XmlGuard::DetectEncoding(unsigned char byte)
{
    m_encoding = byte == 0xFE   ? Encoding::Utf16BigEndian
                 : byte == 0xFF ? Encoding::Utf16LittleEndian
                                : Encoding::Bytes;
}

bool XmlGuard::Feed(char character)
{
    if (character == '\n') {
        ++m_line;
    }
    if (++m_length > kMaxRun) {
        return Fail(
            PlannerText::tr("a single text or comment of more than %1 characters").arg(kMaxRun));
    }
    switch (m_state) {
    case State::Text:
        if (character == '<') {
            m_state = State::MarkupStart;
            m_length = 0;
        }
        return true;
    case State::MarkupStart:
        m_attributes = 0;
        m_last = m_beforeLast = 0;
        m_declarationLength = 0;
        m_state = character == '/'   ? State::EndTag
                  : character == '!' ? State::Declaration
                  : character == '?' ? State::Instruction
                                     : State::StartTag;
        return true;
    case State::StartTag:
    case State::Quoted:
    case State::EndTag:
        return FeedTag(character);
    case State::Declaration:
        return FeedDeclaration(character);
    case State::DocumentType:
        return FeedDocumentType(character);
    case State::Comment:
        FeedUntil(character, '-');
        return true;
    case State::CData:
        FeedUntil(character, ']');
        return true;
    case State::Instruction:
        FeedUntil(character, 0);
        return true;
    }
    return true;
}

bool XmlGuard::FeedTag(char character)
{
    if (m_length > kMaxTag) {
        return Fail(PlannerText::tr("a tag of more than %1 characters").arg(kMaxTag));
    }
    if (m_state == State::Quoted) {
        if (character == m_quote) {
            m_state = State::StartTag;
        }
        return true;
    }
    if (character == '>') {
        if (m_state == State::EndTag) {
            --m_depth;
        } else if (m_last != '/' && ++m_depth > kMaxDepth) {
            return Fail(PlannerText::tr("elements nested more than %1 deep").arg(kMaxDepth));
        }
        m_state = State::Text;
        m_length = 0;
        return true;
    }
    m_last = character;
    if (m_state == State::StartTag && (character == '"' || character == '\'')) {
        m_quote = character;
        m_state = State::Quoted;
        if (++m_attributes > kMaxAttributes) {
            return Fail(PlannerText::tr("a tag with more than %1 attributes").arg(kMaxAttributes));
        }
    }
    return true;
}

/// Comment, character data or document type? The first characters after "<!" tell.
bool XmlGuard::FeedDeclaration(char character)
{
    m_declaration[m_declarationLength++] = character;
    const std::string_view text(m_declaration.data(), m_declarationLength);
    if (text == "--") {
        m_state = State::Comment;
    } else if (text == "[CDATA[") {
        m_state = State::CData;
    } else if (text == "DOCTYPE") {
        m_state = State::DocumentType;
        m_quote = 0;
    } else if (!std::string_view("--").starts_with(text)
               && !std::string_view("[CDATA[").starts_with(text)
               && !std::string_view("DOCTYPE").starts_with(text)) {
        // Nothing that XML knows: the parser will say so.
        m_state = State::Text;
    }
    return true;
}

bool XmlGuard::FeedDocumentType(char character)
{
    if (m_length > kMaxTag) {
        return Fail(PlannerText::tr("a document type of more than %1 characters").arg(kMaxTag));
    }
    if (m_quote != 0) {
        m_quote = character == m_quote ? '\0' : m_quote;
    } else if (character == '"' || character == '\'') {
        m_quote = character;
    } else if (character == '[') {
        return Fail(
            PlannerText::tr("a document type with declarations of its own, such as entities, "
                            "is not accepted in a plan"));
    } else if (character == '>') {
        m_state = State::Text;
        m_length = 0;
    }
    return true;
}

/// Up to "-->", "]]>" or "?>"; the mark 0 stands for the last one.
void XmlGuard::FeedUntil(char character, char mark)
{
    const bool isEnd = mark == 0 ? m_last == '?' : m_last == mark && m_beforeLast == mark;
    if (character == '>' && isEnd) {
        m_state = State::Text;
        m_length = 0;
    }
    m_beforeLast = m_last;
    m_last = character;
}

bool XmlGuard::Fail(const QString &reason)
{
    m_hasFailed = true;
    m_failureLine = m_line;
    setErrorString(reason);
    return false;
}

} // namespace korvane::planner
