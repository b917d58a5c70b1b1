#include "printing/qt/zuPdfOutline.h"

#include "foundation/zuTranslate.h"

#include <QIODevice>
#include <QRegularExpression>

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace korvane {

namespace {

[[noreturn]] void CannotRead()
{
    throw std::runtime_error(Translate("TzuPrinting", "The document cannot be given bookmarks"));
}

/// The objects of a PDF, by number.
class TPdfReader
{
public:
    explicit TPdfReader(QIODevice &pdf)
        : m_pdf(pdf)
    {
        constexpr qint64 kTail = 1024;
        const QByteArray tail = Read(std::max<qint64>(m_pdf.size() - kTail, 0), kTail);
        const qsizetype start = tail.lastIndexOf("startxref");
        const qsizetype trailer = tail.lastIndexOf("trailer");
        if (start < 0 || trailer < 0) {
            CannotRead();
        }
        m_trailer = tail.mid(trailer, start - trailer);
        m_xref = tail.mid(start).split('\n').value(1).trimmed().toLongLong();
        const QByteArray table = Read(m_xref, kTail);
        // "xref", then the first number and how many follow, then entries of twenty bytes.
        const qsizetype entries = table.indexOf('\n', table.indexOf('\n') + 1) + 1;
        if (!table.startsWith("xref\n0 ") || entries == 0) {
            CannotRead();
        }
        m_entries = m_xref + entries;
    }

    qint64 Xref() const { return m_xref; }
    /// The number of the object that a key of a dictionary refers to.
    static int Reference(const QByteArray &dictionary, const char *key)
    {
        const QRegularExpression pattern(QStringLiteral("/%1 (\\d+) 0 R").arg(QLatin1String(key)));
        const auto found = pattern.match(QString::fromLatin1(dictionary));
        if (!found.hasMatch()) {
            CannotRead();
        }
        return found.captured(1).toInt();
    }
    int TrailerReference(const char *key) const { return Reference(m_trailer, key); }
    int ObjectCount() const
    {
        static const QRegularExpression kSize(QStringLiteral("/Size (\\d+)"));
        return kSize.match(QString::fromLatin1(m_trailer)).captured(1).toInt();
    }
    /// What stands between "obj" and "endobj".
    QByteArray Object(int number)
    {
        constexpr int kEntry = 20;
        constexpr qint64 kChunk = 1 << 16;
        const qint64 offset =
            Read(m_entries + qint64{kEntry} * number, kEntry).left(10).toLongLong();
        QByteArray text;
        while (!text.contains("endobj")) {
            const QByteArray more = Read(offset + text.size(), kChunk);
            if (more.isEmpty()) {
                CannotRead();
            }
            text += more;
        }
        const qsizetype begin = text.indexOf("obj") + 3;
        return text.mid(begin, text.indexOf("endobj") - begin).trimmed();
    }

private:
    QByteArray Read(qint64 at, qint64 size)
    {
        m_pdf.seek(at);
        return m_pdf.read(size);
    }

    QIODevice &m_pdf;
    QByteArray m_trailer;
    qint64 m_xref = 0;
    qint64 m_entries = 0;
};

std::vector<int> PageObjects(TPdfReader &reader, const QByteArray &catalog)
{
    const QByteArray list = reader.Object(TPdfReader::Reference(catalog, "Pages"));
    const qsizetype begin = list.indexOf('[', list.indexOf("/Kids")) + 1;
    const qsizetype end = list.indexOf(']', begin);
    std::vector<int> pages;
    const QList<QByteArray> words = list.mid(begin, end - begin).simplified().split(' ');
    for (qsizetype i = 0; i + 2 < words.size(); i += 3) {
        pages.push_back(words[i].toInt());
    }
    return pages;
}

/// As a string of UTF-16.
QByteArray PdfText(const QString &text)
{
    QByteArray hex = "<FEFF";
    for (const QChar unit : text) {
        hex += QByteArray::number(unit.unicode(), 16).rightJustified(4, '0');
    }
    return hex + '>';
}

/// How bookmarks hang together, by their index; -1 for none.
struct TNode
{
    int Parent = -1;
    int Before = -1;
    int After = -1;
    int First = -1;
    int Last = -1;
    int Below = 0; ///< on all levels
};

std::vector<TNode> Linked(const std::vector<TPdfBookmark> &bookmarks)
{
    std::vector<TNode> nodes(bookmarks.size() + 1); // the last one is the root
    const int root = static_cast<int>(bookmarks.size());
    const auto at = [&nodes](int index) -> TNode & {
        return nodes[static_cast<std::size_t>(index)];
    };
    std::vector<int> open{root};
    for (int i = 0; i < root; ++i) {
        const auto depth =
            static_cast<std::size_t>(std::max(bookmarks[static_cast<std::size_t>(i)].Level, 0) + 1);
        open.resize(std::min(open.size(), depth));
        TNode &node = at(i);
        node.Parent = open.back();
        TNode &parent = at(node.Parent);
        node.Before = parent.Last;
        (parent.Last < 0 ? parent.First : at(parent.Last).After) = i;
        parent.Last = i;
        for (const int above : open) {
            ++at(above).Below;
        }
        open.push_back(i);
    }
    return nodes;
}

/// Objects one after the other, and their places for the table.
class TPdfUpdate
{
public:
    explicit TPdfUpdate(qint64 offset)
        : m_offset(offset)
    {
    }

    void Add(int number, const QByteArray &content)
    {
        m_entries.emplace_back(number, m_offset + m_text.size());
        m_text += QByteArray::number(number) + " 0 obj\n" + content + "\nendobj\n";
    }
    QByteArray Finish(int size, const TPdfReader &reader)
    {
        const qint64 xref = m_offset + m_text.size();
        m_text += "xref\n";
        for (const auto &[number, offset] : m_entries) {
            m_text += QByteArray::number(number) + " 1\n"
                      + QByteArray::number(offset).rightJustified(10, '0') + " 00000 n \n";
        }
        m_text += "trailer\n<<\n/Size " + QByteArray::number(size) + "\n/Info "
                  + QByteArray::number(reader.TrailerReference("Info")) + " 0 R\n/Root "
                  + QByteArray::number(reader.TrailerReference("Root")) + " 0 R\n/Prev "
                  + QByteArray::number(reader.Xref()) + "\n>>\nstartxref\n"
                  + QByteArray::number(xref) + "\n%%EOF\n";
        return std::move(m_text);
    }

private:
    qint64 m_offset;
    QByteArray m_text;
    std::vector<std::pair<int, qint64>> m_entries;
};

} // namespace

QByteArray PdfOutlineUpdate(QIODevice &pdf, const QString &title,
                            const std::vector<TPdfBookmark> &bookmarks)
{
    if (bookmarks.empty() && title.isEmpty()) {
        return {};
    }
    TPdfReader reader(pdf);
    const int root = reader.TrailerReference("Root");
    QByteArray catalog = reader.Object(root);
    const std::vector<int> pages = PageObjects(reader, catalog);
    const int first = reader.ObjectCount();
    const auto reference = [first](const char *key, int index) {
        return index < 0
                   ? QByteArray()
                   : '/' + QByteArray(key) + ' ' + QByteArray::number(first + index) + " 0 R\n";
    };
    TPdfUpdate update(pdf.size());
    QByteArray added;
    if (!title.isEmpty()) {
        added += "/ViewerPreferences << /DisplayDocTitle true >>\n";
    }
    int size = first;
    if (!bookmarks.empty()) {
        const std::vector<TNode> nodes = Linked(bookmarks);
        added +=
            reference("Outlines", static_cast<int>(bookmarks.size())) + "/PageMode /UseOutlines\n";
        for (std::size_t i = 0; i < bookmarks.size(); ++i) {
            const TPdfBookmark &mark = bookmarks[i];
            const TNode &node = nodes[i];
            QByteArray item = "<<\n/Title " + PdfText(mark.Title) + '\n'
                              + reference("Parent", node.Parent) + reference("Prev", node.Before)
                              + reference("Next", node.After) + reference("First", node.First)
                              + reference("Last", node.Last);
            if (node.Below > 0) { // closed
                item += "/Count " + QByteArray::number(-node.Below) + '\n';
            }
            item += "/Dest [" + QByteArray::number(pages.at(static_cast<std::size_t>(mark.Page)))
                    + " 0 R /XYZ null " + QByteArray::number(mark.Top, 'f', 2) + " null]\n>>";
            update.Add(size++, item);
        }
        const TNode &top = nodes.back();
        int shown = 0;
        for (int i = top.First; i >= 0; i = nodes[static_cast<std::size_t>(i)].After) {
            ++shown;
        }
        update.Add(size++, "<<\n/Type /Outlines\n" + reference("First", top.First)
                               + reference("Last", top.Last) + "/Count " + QByteArray::number(shown)
                               + "\n>>");
    }
    const qsizetype end = catalog.lastIndexOf(">>");
    if (end < 0) {
        CannotRead();
    }
    catalog.insert(end, '\n' + added);
    update.Add(root, catalog);
    return update.Finish(size, reader);
}

} // namespace korvane
