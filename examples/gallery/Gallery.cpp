#include "Gallery.h"

#include "Pages.h"

#include <QApplication>
#include <QDir>
#include <QHBoxLayout>
#include <QPixmap>
#include <QStackedWidget>

#include <iostream>
#include <memory>

TGallery::TGallery(QWidget *parent)
    : QWidget(parent)
    , m_list(new QListWidget)
    , m_stack(new QStackedWidget)
{
    for (const TGalleryPage &page : kGalleryPages) {
        m_list->addItem(page.Name);
        m_stack->addWidget(new QWidget);
    }
    m_list->setFixedWidth(m_list->sizeHintForColumn(0) + 4 * m_list->fontMetrics().height());

    auto *layout = new QHBoxLayout(this);
    layout->addWidget(m_list);
    layout->addWidget(m_stack, 1);
    connect(m_list, &QListWidget::currentRowChanged, this, &TGallery::ShowPage);
    m_list->setCurrentRow(0);
}

void TGallery::ShowPage(int index)
{
    QWidget *shown = m_stack->widget(index);
    if (shown->layout() == nullptr) {
        auto *layout = new QHBoxLayout(shown);
        layout->setContentsMargins({});
        layout->addWidget(kGalleryPages.at(static_cast<std::size_t>(index)).Create());
    }
    m_stack->setCurrentIndex(index);
}

QPalette DarkPalette()
{
    const QColor window(0x2b, 0x2d, 0x30);
    const QColor base(0x1e, 0x1f, 0x22);
    const QColor text(0xdf, 0xe1, 0xe5);
    const QColor faint(0x86, 0x8a, 0x91);
    const QColor highlight(0x2e, 0x5c, 0x9e);

    QPalette palette(text, QColor(0x3c, 0x3f, 0x43), QColor(0x5a, 0x5d, 0x63),
                     QColor(0x1a, 0x1b, 0x1d), QColor(0x2a, 0x2c, 0x2f), text, Qt::white, base,
                     window);
    palette.setColor(QPalette::AlternateBase, window);
    palette.setColor(QPalette::Highlight, highlight);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::ToolTipBase, QColor(0x3c, 0x3f, 0x43));
    palette.setColor(QPalette::ToolTipText, text);
    palette.setColor(QPalette::PlaceholderText, faint);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::Disabled, role, faint);
    }
    return palette;
}

bool RenderPages(const QString &folder)
{
    bool written = QDir().mkpath(folder);
    for (const TGalleryPage &page : kGalleryPages) {
        const std::unique_ptr<QWidget> widget(page.Create());
        widget->resize(page.PictureSize);
        widget->show();
        // Deferred layout and loading are done before the picture is taken.
        QApplication::processEvents();
        const QString path = QDir(folder).filePath(QString(page.FileName) + ".png");
        if (!widget->grab().save(path)) {
            std::cerr << "gallery: cannot write " << path.toStdString() << '\n';
            written = false;
        }
    }
    return written;
}
