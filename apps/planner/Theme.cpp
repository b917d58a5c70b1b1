#include "Theme.h"

#include <initializer_list>
#include <utility>

namespace korvane::planner {

QPalette DarkPalette()
{
    const QColor text(0xE4, 0xE6, 0xEA);
    const QColor faint(0x80, 0x86, 0x90);
    QPalette palette(QColor(0x2B, 0x2E, 0x34));
    const std::initializer_list<std::pair<QPalette::ColorRole, QColor>> colors = {
        {QPalette::Window, QColor(0x2B, 0x2E, 0x34)},
        {QPalette::WindowText, text},
        {QPalette::Base, QColor(0x1F, 0x22, 0x27)},
        {QPalette::AlternateBase, QColor(0x26, 0x29, 0x2F)},
        {QPalette::Text, text},
        {QPalette::Button, QColor(0x35, 0x39, 0x40)},
        {QPalette::ButtonText, text},
        {QPalette::BrightText, Qt::white},
        {QPalette::ToolTipBase, QColor(0x35, 0x39, 0x40)},
        {QPalette::ToolTipText, text},
        {QPalette::PlaceholderText, faint},
        {QPalette::Highlight, QColor(0x3D, 0x7E, 0xC9)},
        {QPalette::HighlightedText, Qt::white},
        {QPalette::Link, QColor(0x7F, 0xB4, 0xF0)},
    };
    for (const auto &[role, color] : colors) {
        palette.setColor(role, color);
    }
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::Disabled, role, faint);
    }
    return palette;
}

} // namespace korvane::planner
