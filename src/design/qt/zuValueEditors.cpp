#include "design/qt/zuValueEditors.h"

#include "cellgrid/zuLayoutProp.h"
#include "foundation/qt/zuConvert.h"
#include "foundation/zuCanvas.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QCoreApplication>
#include <QFontDialog>
#include <QJsonArray>
#include <QJsonObject>
#include <QLineEdit>
#include <QMenu>
#include <QPainter>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QToolButton>

#include <memory>
#include <span>

namespace korvane {

namespace {

using TChanged = std::function<void(const QJsonValue &)>;

TValueEditor FlagEditor(const TChanged &changed)
{
    auto *box = new QCheckBox;
    QObject::connect(box, &QCheckBox::toggled, box, [changed](bool on) { changed(on); });
    return {box, [box](const QJsonValue &value) {
                const QSignalBlocker silent(box);
                box->setChecked(value.toBool());
            }};
}

TValueEditor NumberEditor(const TChanged &changed)
{
    constexpr int kMost = 10000;
    auto *box = new QSpinBox;
    box->setRange(0, kMost);
    box->setSuffix(QCoreApplication::translate("TzuDesign", " px"));
    QObject::connect(box, &QSpinBox::valueChanged, box, [changed](int value) { changed(value); });
    return {box, [box](const QJsonValue &value) {
                const QSignalBlocker silent(box);
                box->setValue(value.toInt());
            }};
}

TValueEditor TextEditor(const TChanged &changed)
{
    auto *line = new QLineEdit;
    QObject::connect(line, &QLineEdit::textEdited, line,
                     [changed](const QString &text) { changed(text); });
    return {line, [line](const QJsonValue &value) {
                if (line->text() != value.toString()) { // keeps the cursor in its place
                    line->setText(value.toString());
                }
            }};
}

/// One of a few names; with `free`, any other text as well.
TValueEditor NameEditor(const QStringList &names, bool free, const TChanged &changed)
{
    auto *box = new QComboBox;
    box->setEditable(free);
    box->addItems(names);
    QObject::connect(box, &QComboBox::currentTextChanged, box,
                     [changed](const QString &text) { changed(text); });
    return {box, [box](const QJsonValue &value) {
                const QSignalBlocker silent(box);
                if (box->currentText() != value.toString()) {
                    box->setCurrentText(value.toString());
                }
            }};
}

struct TNamedBit
{
    const char *Name;
    int Bit;
};

constexpr TNamedBit kSides[] = {
    {"foLeft", foLeft}, {"foTop", foTop}, {"foRight", foRight}, {"foBottom", foBottom}};
constexpr TNamedBit kTextFlags[] = {
    {QT_TRANSLATE_NOOP("TzuDesign", "Centred"), TLayoutProp::kTextCenter},
    {QT_TRANSLATE_NOOP("TzuDesign", "At the right"), TLayoutProp::kTextRight},
    {QT_TRANSLATE_NOOP("TzuDesign", "Half-way down"), TLayoutProp::kTextVCenter},
    {QT_TRANSLATE_NOOP("TzuDesign", "At the bottom"), TLayoutProp::kTextBottom},
    {QT_TRANSLATE_NOOP("TzuDesign", "Words wrapped"), TLayoutProp::kTextWordBreak},
    {QT_TRANSLATE_NOOP("TzuDesign", "Single line"), TLayoutProp::kTextSingleLine},
    {QT_TRANSLATE_NOOP("TzuDesign", "Ellipsis at the end"), TLayoutProp::kTextEndEllipsis},
};

/// A set of bits, as a menu of check marks. Other bits are kept.
TValueEditor BitsEditor(std::span<const TNamedBit> bits, const TChanged &changed)
{
    auto *button = new QToolButton;
    button->setPopupMode(QToolButton::InstantPopup);
    button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    auto *menu = new QMenu(button);
    button->setMenu(menu);
    const auto value = std::make_shared<int>(0);
    const auto show = [button, menu, value] {
        QStringList names;
        for (QAction *action : menu->actions()) {
            const QSignalBlocker silent(action);
            action->setChecked((*value & action->data().toInt()) != 0);
            if (action->isChecked()) {
                names.append(action->text());
            }
        }
        button->setText(names.isEmpty() ? QCoreApplication::translate("TzuDesign", "(none)")
                                        : names.join(u", "));
    };
    for (const TNamedBit &bit : bits) {
        QAction *action = menu->addAction(QCoreApplication::translate("TzuDesign", bit.Name));
        action->setCheckable(true);
        action->setData(bit.Bit);
        QObject::connect(action, &QAction::toggled, button, [=](bool on) {
            *value = on ? *value | bit.Bit : *value & ~bit.Bit;
            show();
            changed(*value);
        });
    }
    return {button, [value, show](const QJsonValue &bitsShown) {
                *value = bitsShown.toInt();
                show();
            }};
}

struct TNamedColor
{
    const char *Name;
    TColor Color;
};

constexpr TNamedColor kColors[] = {
    {"clWindow", clWindow},       {"clWindowText", clWindowText},
    {"clBtnFace", clBtnFace},     {"clBtnShadow", clBtnShadow},
    {"clBtnText", clBtnText},     {"clBtnHighlight", clBtnHighlight},
    {"clHighlight", clHighlight}, {"clHighlightText", clHighlightText},
    {"clGrayText", clGrayText},   {"clInfoBk", clInfoBk},
    {"clInfoText", clInfoText},   {"clBlack", clBlack},
    {"clWhite", clWhite},         {"clSilver", clSilver},
    {"clGray", clGray},           {"clRed", clRed},
    {"clGreen", clGreen},         {"clBlue", clBlue},
    {"clOlive", clOlive},
};

QIcon Swatch(const QWidget &widget, TColor color)
{
    constexpr int kSize = 16;
    QPixmap pixmap(QSize(kSize, kSize) * widget.devicePixelRatio());
    pixmap.setDevicePixelRatio(widget.devicePixelRatio());
    QPainter painter(&pixmap);
    painter.fillRect(0, 0, kSize, kSize, widget.palette().color(QPalette::Mid));
    painter.fillRect(1, 1, kSize - 2, kSize - 2, ToQt(color, widget.palette()));
    return QIcon(pixmap);
}

/// Colours that follow the palette, plain ones, and any other by a dialog.
class TColorBox : public QComboBox
{
public:
    explicit TColorBox(TChanged changed)
        : m_changed(std::move(changed))
    {
        for (const TNamedColor &each : kColors) {
            addItem(Swatch(*this, each.Color), QString::fromLatin1(each.Name), each.Color);
        }
        m_named = count();
        addItem(QCoreApplication::translate("TzuDesign", "Other..."));
        QObject::connect(this, &QComboBox::activated, this, [this](int index) { Choose(index); });
    }

    void Show(TColor color)
    {
        m_color = color;
        while (count() > m_named + 1) { // the own colour of before
            removeItem(m_named);
        }
        int index = findData(color);
        if (index < 0) {
            index = m_named;
            insertItem(index, Swatch(*this, color), ToQt(color, palette()).name(), color);
        }
        setCurrentIndex(index);
    }

private:
    void Choose(int index)
    {
        if (index < count() - 1) {
            Show(itemData(index).toUInt());
            m_changed(qint64{m_color});
            return;
        }
        const QColor chosen = QColorDialog::getColor(ToQt(m_color, palette()), this);
        Show(chosen.isValid() ? FromQt(chosen) : m_color);
        if (chosen.isValid()) {
            m_changed(qint64{m_color});
        }
    }

    TChanged m_changed;
    TColor m_color = clWindow;
    int m_named = 0;
};

TValueEditor ColorEditor(const TChanged &changed)
{
    auto *box = new TColorBox(changed);
    return {box,
            [box](const QJsonValue &value) { box->Show(static_cast<TColor>(value.toInteger())); }};
}

TFont FontOf(const QJsonObject &json)
{
    TFont font;
    font.Name = FromQt(json["Name"].toString());
    font.Size = json["Size"].toInt();
    font.Bold = json["Bold"].toBool();
    font.Italic = json["Italic"].toBool();
    font.Underline = json["Underline"].toBool();
    font.StrikeOut = json["StrikeOut"].toBool();
    return font;
}

QJsonObject WithFont(QJsonObject json, const TFont &font)
{
    json["Name"] = ToQt(font.Name);
    json["Size"] = font.Size;
    json["Bold"] = font.Bold;
    json["Italic"] = font.Italic;
    json["Underline"] = font.Underline;
    json["StrikeOut"] = font.StrikeOut;
    return json;
}

TValueEditor FontEditor(const TChanged &changed)
{
    auto *button = new QPushButton;
    const auto value = std::make_shared<QJsonObject>();
    const auto show = [button, value](const QJsonValue &json) {
        *value = json.toObject();
        const TFont font = FontOf(*value);
        button->setText(QStringLiteral("%1, %2").arg(ToQt(font.Name)).arg(font.Size));
    };
    QObject::connect(button, &QPushButton::clicked, button, [=] {
        bool chosen = false;
        const TFont before = FontOf(*value);
        const QFont font = QFontDialog::getFont(&chosen, ToQt(before), button);
        if (chosen) {
            show(WithFont(*value, FromQt(font, before)));
            changed(*value);
        }
    });
    return {button, show};
}

/// Counts the columns; the button asks for their editor by reporting them unchanged.
TValueEditor ColumnsEditor(const TChanged &changed)
{
    auto *button = new QPushButton;
    const auto value = std::make_shared<QJsonArray>();
    QObject::connect(button, &QPushButton::clicked, button, [=] { changed(*value); });
    return {button, [button, value](const QJsonValue &json) {
                *value = json.toArray();
                button->setText(
                    QCoreApplication::translate("TzuDesign", "%1 columns...").arg(value->size()));
            }};
}

} // namespace

TValueEditor CreateValueEditor(const TItemProperty &property, const TItemNames &names,
                               const TChanged &changed)
{
    using enum TItemPropertyKind;
    switch (property.Kind) {
    case Flag:
        return FlagEditor(changed);
    case Number:
        return NumberEditor(changed);
    case ColumnKind:
        return NameEditor({"tckSimpleEdit", "tckMemo", "tckBool", "tckCombo", "tckDate", "tckTime",
                           "tckSubGrid", "tckSubTree"},
                          false, changed);
    case FrameKind:
        return NameEditor({"fkSingle", "fkDouble", "fkDotted", "fkRaised", "fkLowered"}, false,
                          changed);
    case FrameSides:
        return BitsEditor(kSides, changed);
    case TextFlags:
        return BitsEditor(kTextFlags, changed);
    case Color:
        return ColorEditor(changed);
    case Font:
        return FontEditor(changed);
    case LayoutName:
        return NameEditor(QStringList(QString()) + names.Layouts, true, changed);
    case SubGridName:
        return NameEditor(QStringList(QString()) + names.SubGrids, true, changed);
    case Columns:
        return ColumnsEditor(changed);
    default:
        return TextEditor(changed);
    }
}

} // namespace korvane
