// Files that cannot be completed: told, and nothing of them is left.
#include "PrintedComponents.h"
#include "PrintedPages.h"
#include "printing/qt/zuTreePrinting.h"
#include "support/SmallDisk.h"

#include <QDir>
#include <QPrinter>
#include <QTemporaryDir>

#include <algorithm>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdexcept>

using namespace korvane;
using namespace korvane::test;

namespace {

/// A tree that is printed on several pages, into files in a folder of their own.
struct FullDisk : testing::Test
{
    TzuTree Tree;
    TzuTreePrinting Printing{Tree};
    QTemporaryDir Folder;
    QPrinter Printer;

    FullDisk()
    {
        FillTree(Tree);
        SetBareSheet(Printing, 300, 200);
        Printer.setOutputFormat(QPrinter::PdfFormat);
        Printer.setOutputFileName(Path("plan.pdf"));
    }
    QString Path(const char *name) const { return Folder.filePath(QLatin1String(name)); }
    QStringList Files() const
    {
        return QDir(Folder.path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
    }
    void Write(const char *name, const QByteArray &text) const
    {
        QFile file(Path(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }
    QByteArray Read(const char *name) const
    {
        QFile file(Path(name));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }
};

#ifdef Q_OS_UNIX
TEST_F(FullDisk, WhatWasThereStaysWhereverItEnds)
{
    const std::pair<const char *, std::function<void()>> targets[] = {
        {"PDF", [&] { Printing.SavePdf(Path("plan.pdf")); }},
        {"pictures", [&] { Printing.SavePictures(Path("plan.png"), 96); }},
        {"shapes", [&] { Printing.SaveSvg(Path("plan.svg")); }},
        {"printer", [&] { Printing.Print(Printer); }},
    };
    for (const auto &[name, save] : targets) {
        save();
        qint64 whole = 0; // of the largest file
        for (const QFileInfo &file : QDir(Folder.path()).entryInfoList(QDir::Files)) {
            whole = std::max(whole, file.size());
            QFile::remove(file.filePath());
        }
        Write("plan.pdf", "old");
        Write("plan-2.svg", "old");
        const QStringList before = Files();
        for (const double share : {0.0, 0.02, 0.4, 0.9, 0.999}) {
            SCOPED_TRACE(std::string(name) + ", " + std::to_string(share));
            std::string error;
            {
                const SmallDisk disk(static_cast<rlim_t>(static_cast<double>(whole) * share));
                try {
                    save();
                } catch (const std::runtime_error &failure) {
                    error = failure.what();
                }
            }
            EXPECT_THAT(error, testing::HasSubstr("Cannot write"));
            EXPECT_THAT(error, testing::HasSubstr(Folder.path().toStdString() + "/plan"));
            EXPECT_EQ(Files(), before);
            EXPECT_EQ(Read("plan.pdf"), "old");
        }
        EXPECT_EQ(Read("plan-2.svg"), "old");
        EXPECT_EQ(Printer.outputFileName(), Path("plan.pdf"));
    }
}
#endif

TEST_F(FullDisk, PicturesAreAllPutInTheirPlacesOrNone)
{
    Write("plan-1.png", "old");
    ASSERT_TRUE(QDir(Folder.path()).mkdir(QStringLiteral("plan-3.png"))); // no place for a file
    const QStringList before = Files();
    EXPECT_THROW(Printing.SavePictures(Path("plan.png"), 48), std::runtime_error);
    EXPECT_EQ(Files(), before);
    EXPECT_EQ(Read("plan-1.png"), "old");
    ASSERT_TRUE(QDir(Folder.path()).rmdir(QStringLiteral("plan-3.png")));
    const QStringList files = Printing.SavePictures(Path("plan.png"), 48);
    EXPECT_GT(files.size(), 2);
    EXPECT_EQ(Files().size(), files.size());
    EXPECT_TRUE(Read("plan-1.png").contains("PNG"));
}

} // namespace
