// Keeps XML that is made to exhaust its reader away from the parser.
#pragma once

#include <QIODevice>

#include <array>
#include <cstdint>

namespace korvane::planner {

/// Passes an XML file through and watches its markup on the way. What would cost the parser time or
/// memory out of proportion ends the stream with an error: deep nesting, tags with very many
/// attributes, endless tags, texts and comments, and document types that declare entities. Handles
/// UTF-8 and all encodings that agree with ASCII, and UTF-16.
class XmlGuard final : public QIODevice
{
public:
    static constexpr int kMaxDepth = 1000;
    static constexpr int kMaxAttributes = 200; ///< in one tag
    static constexpr qint64 kMaxTag = 1 << 20; ///< characters
    static constexpr qint64 kMaxRun = 1 << 24; ///< characters of one text or comment

    /// Opens itself for reading. `source` is observed and has to live as long.
    explicit XmlGuard(QIODevice &source);

    bool isSequential() const override { return true; }

    /// True after the stream has been cut off, by a limit or by the source; errorString() says why.
    bool HasFailed() const { return m_hasFailed; }
    /// Where a limit was exceeded, 1-based; 0 when the source failed.
    qint64 FailureLine() const { return m_failureLine; }

protected:
    qint64 readData(char *data, qint64 maxSize) override;
    qint64 writeData(const char * /*data*/, qint64 /*size*/) override { return -1; }

private:
    enum class State : std::uint8_t {
        Text,
        MarkupStart, ///< after <
        StartTag,
        Quoted, ///< inside an attribute's value
        EndTag,
        Declaration, ///< after <!, until it is known what it is
        Comment,
        CData,
        Instruction, ///< <? ... ?>
        DocumentType,
    };
    enum class Encoding : std::uint8_t { Unknown, Bytes, Utf16BigEndian, Utf16LittleEndian };

    void DetectEncoding(unsigned char byte);
    bool Scan(const char *data, qint64 size);
    /// One character, or a placeholder for one outside ASCII. False when a limit is exceeded.
    bool Feed(char character);
    bool FeedTag(char character);
    bool FeedDeclaration(char character);
    bool FeedDocumentType(char character);
    void FeedUntil(char character, char mark);
    bool Fail(const QString &reason);

    QIODevice &m_source;
    qint64 m_line = 1;
    qint64 m_failureLine = 0;
    qint64 m_length = 0; ///< characters since the state's markup or text began
    int m_depth = 0;
    int m_attributes = 0;
    char m_quote = 0;
    char m_last = 0;
    char m_beforeLast = 0;
    std::array<char, 8> m_declaration{};
    int m_declarationLength = 0;
    State m_state = State::Text;
    Encoding m_encoding = Encoding::Unknown;
    unsigned char m_pendingByte = 0; ///< first half of a UTF-16 unit
    bool m_hasPendingByte = false;
    bool m_hasFailed = false;
};

} // namespace korvane::planner
