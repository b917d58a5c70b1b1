// The gallery's window, and its pages as pictures.
#pragma once

#include <QListWidget>
#include <QPalette>
#include <QString>
#include <QWidget>

class QStackedWidget;

/// The list of pages on the left, the page on the right. A page is made when it is first shown.
class TGallery : public QWidget
{
public:
    explicit TGallery(QWidget *parent = nullptr);

private:
    void ShowPage(int index);

    QListWidget *m_list;
    QStackedWidget *m_stack;
};

QPalette DarkPalette();

/// Writes one PNG per page into a folder, which is created when missing. False when one could not
/// be written; the reason then stands on standard error.
bool RenderPages(const QString &folder);
