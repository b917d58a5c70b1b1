#include "grid/qt/zuGridJson.h"

#include "foundation/qt/zuConvert.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QtDebug>

#include <array>
#include <stdexcept>
#include <string>
#include <type_traits>

namespace korvane {

namespace {

constexpr std::array kKindNames{"tckSimpleEdit", "tckMemo", "tckBool",    "tckCombo",
                                "tckDate",       "tckTime", "tckSubGrid", "tckSubTree"};
constexpr std::array kFrameNames{"fkSingle", "fkDouble", "fkDotted", "fkRaised", "fkLowered"};

template <typename Enum, std::size_t N>
Enum EnumOf(const std::array<const char *, N> &names, const QString &name)
{
    for (std::size_t i = 0; i < N; ++i) {
        if (name == QLatin1String(names[i])) {
            return static_cast<Enum>(i);
        }
    }
    throw std::invalid_argument("Unknown kind: " + name.toStdString());
}

template <typename T>
QJsonValue ToValue(const T &value)
{
    if constexpr (std::is_same_v<T, bool>) {
        return value;
    } else if constexpr (std::is_same_v<T, std::string>) {
        return ToQt(value);
    } else if constexpr (std::is_same_v<T, TColumnKind>) {
        return QString::fromLatin1(kKindNames[static_cast<std::size_t>(value)]);
    } else if constexpr (std::is_same_v<T, TFrameKind>) {
        return QString::fromLatin1(kFrameNames[static_cast<std::size_t>(value)]);
    } else if constexpr (std::is_same_v<T, TFont>) {
        return QJsonObject{{"Name", ToQt(value.Name)},     {"Size", value.Size},
                           {"Color", qint64{value.Color}}, {"Bold", value.Bold},
                           {"Italic", value.Italic},       {"Underline", value.Underline},
                           {"StrikeOut", value.StrikeOut}};
    } else {
        return static_cast<qint64>(value);
    }
}

template <typename T>
T FromValue(const QJsonValue &json, const T &fallback)
{
    if constexpr (std::is_same_v<T, bool>) {
        return json.toBool(fallback);
    } else if constexpr (std::is_same_v<T, std::string>) {
        return FromQt(json.toString());
    } else if constexpr (std::is_same_v<T, TColumnKind>) {
        return EnumOf<TColumnKind>(kKindNames, json.toString());
    } else if constexpr (std::is_same_v<T, TFrameKind>) {
        return EnumOf<TFrameKind>(kFrameNames, json.toString());
    } else if constexpr (std::is_same_v<T, TFont>) {
        const QJsonObject font = json.toObject();
        return {FromQt(font["Name"].toString(ToQt(fallback.Name))),
                font["Size"].toInt(fallback.Size),
                static_cast<TColor>(font["Color"].toInteger(fallback.Color)),
                font["Bold"].toBool(fallback.Bold),
                font["Italic"].toBool(fallback.Italic),
                font["Underline"].toBool(fallback.Underline),
                font["StrikeOut"].toBool(fallback.StrikeOut)};
    } else {
        return static_cast<T>(json.toInteger(fallback));
    }
}

/// A property as its name, reader and writer; one list serves both directions.
template <typename Item, typename Visit>
void VisitProperties(Item *, Visit &&visit)
{
    using C = std::remove_const_t<Item>;
    if constexpr (std::is_same_v<C, TzuGrid_Column>) {
        visit("Width", &C::Width, &C::SetWidth);
        visit("Kind", &C::Kind, &C::SetKind);
        visit("HeaderText", &C::HeaderText, &C::SetHeaderText);
        visit("SortEnable", &C::SortEnable, &C::SetSortEnable);
        visit("ReadOnly", &C::ReadOnly, &C::SetReadOnly);
        visit("SubGridName", &C::SubGridName, &C::SetSubGridName);
        visit("TreeButton", &C::TreeButton, &C::SetTreeButton);
        visit("HasIcon", &C::HasIcon, &C::SetHasIcon);
        visit("Hidden", &C::Hidden, &C::SetHidden);
        visit("LayoutName", &C::LayoutName, &C::SetLayoutName);
        visit("Groupcells", &C::Groupcells, &C::SetGroupcells);
        visit("NumericSort", &C::NumericSort, &C::SetNumericSort);
    } else if constexpr (std::is_same_v<C, TzuGrid_SubGrid>) {
        visit("Name", &C::Name, &C::SetName);
        visit("HasHeaders", &C::HasHeaders, &C::SetHasHeaders);
        visit("HasInfoCol", &C::HasInfoCol, &C::SetHasInfoCol);
        visit("ExtendLastColumnToWidth", &C::ExtendLastColumnToWidth,
              &C::SetExtendLastColumnToWidth);
    } else {
        visit("Name", &C::Name, &C::SetName);
        visit("BackColor", &C::BackColor, &C::SetBackColor);
        visit("FrontColor", &C::FrontColor, &C::SetFrontColor);
        visit("UseFontInfo", &C::UseFontInfo, &C::SetUseFontInfo);
        visit("Font", &C::Font, &C::SetFont);
        visit("MinWidth", &C::MinWidth, &C::SetMinWidth);
        visit("MinHeight", &C::MinHeight, &C::SetMinHeight);
        visit("WrapTextAndFit", &C::WrapTextAndFit, &C::SetWrapTextAndFit);
        visit("WindowsFlagDraw", &C::WindowsFlagDraw, &C::SetWindowsFlagDraw);
        visit("WindowsFlags", &C::WindowsFlags, &C::SetWindowsFlags);
        visit("FrameOptionsUse", &C::FrameOptionsUse, &C::SetFrameOptionsUse);
        visit("FrameOptions", &C::FrameOptions, &C::SetFrameOptions);
        visit("FrameKind", &C::FrameKind, &C::SetFrameKind);
        visit("FrameColor", &C::FrameColor, &C::SetFrameColor);
        visit("HorzAlignRight", &C::HorzAlignRight, &C::SetHorzAlignRight);
        visit("HorzAlignCenter", &C::HorzAlignCenter, &C::SetHorzAlignCenter);
        visit("VertAlignCenter", &C::VertAlignCenter, &C::SetVertAlignCenter);
        visit("EndEllipsis", &C::EndEllipsis, &C::SetEndEllipsis);
    }
}

template <typename Collection>
QJsonArray ItemsToJson(const Collection &items);

template <typename Item>
QJsonObject ItemToJson(const Item &item)
{
    QJsonObject json;
    VisitProperties(&item, [&](const char *name, auto get, auto) {
        json[QLatin1String(name)] = ToValue((item.*get)());
    });
    if constexpr (std::is_same_v<Item, TzuGrid_SubGrid>) {
        json["Columns"] = ItemsToJson(item.Columns());
    }
    return json;
}

template <typename Collection>
QJsonArray ItemsToJson(const Collection &items)
{
    QJsonArray json;
    for (int index = 0; index < items.Count(); ++index) {
        json.append(ItemToJson(items.At(index)));
    }
    return json;
}

/// Throws when a list could not be read whole.
void CheckItems(const QJsonValue &json)
{
    if (!json.isUndefined() && !json.isArray()) {
        throw std::invalid_argument("A list is expected");
    }
    for (const QJsonValue &each : json.toArray()) {
        if (!each.isObject()) {
            throw std::invalid_argument("An object is expected");
        }
        const QJsonObject item = each.toObject();
        if (item.contains("Kind")) {
            EnumOf<TColumnKind>(kKindNames, item["Kind"].toString());
        }
        if (item.contains("FrameKind")) {
            EnumOf<TFrameKind>(kFrameNames, item["FrameKind"].toString());
        }
        CheckItems(item["Columns"]);
    }
}

template <typename Collection>
void ItemsFromJson(Collection &items, const QJsonValue &json)
{
    if (!json.isArray()) {
        return;
    }
    items.Clear();
    for (const QJsonValue &each : json.toArray()) {
        const QJsonObject object = each.toObject();
        auto &item = items.Add();
        VisitProperties(&item, [&](const char *name, auto get, auto set) {
            const QJsonValue value = object[QLatin1String(name)];
            if (!value.isUndefined()) {
                using T = std::decay_t<decltype((item.*get)())>;
                (item.*set)(FromValue<T>(value, (item.*get)()));
            }
        });
        if constexpr (std::is_same_v<std::decay_t<decltype(item)>, TzuGrid_SubGrid>) {
            ItemsFromJson(item.Columns(), object["Columns"]);
        }
    }
}

/// Nobody to tell of changes.
struct TNoHost : IGridModelHost
{
    void ModelChanged() override {}
    void NeedEnsureFixed() override {}
    void SubGridsChanged() override {}
};

/// The items without what they start with.
QJsonArray WithoutDefaults(const QJsonArray &items, const QString &collection)
{
    const QJsonObject defaults = NewGridItemJson(collection);
    QJsonArray result;
    for (const QJsonValue &item : items) {
        QJsonObject kept;
        const QJsonObject object = item.toObject();
        for (auto each = object.begin(); each != object.end(); ++each) {
            if (each.key() == u"Columns" && each.value().isArray()) {
                const QJsonArray columns = WithoutDefaults(each.value().toArray(), each.key());
                if (!columns.isEmpty()) {
                    kept[each.key()] = columns;
                }
            } else if (each.value() != defaults[each.key()]) {
                kept[each.key()] = each.value();
            }
        }
        result.append(kept);
    }
    return result;
}

} // namespace

QJsonObject NewGridItemJson(const QString &collection)
{
    TNoHost host;
    TzuCellLayouts layouts(host);
    if (collection == u"Columns") {
        TzuGrid_Columns columns(host, layouts);
        return ItemToJson(TzuGrid_Column(columns, columns.DefaultWidth(), columns.DefaultKind()));
    }
    if (collection == u"SubGrids") {
        return ItemToJson(TzuGrid_SubGrid(host, layouts));
    }
    return collection == u"CellLayouts" ? ItemToJson(TzuCellLayout(layouts)) : QJsonObject();
}

QByteArray GridCollectionToText(const TzuGridCore &grid, const QString &collection)
{
    const QJsonArray items = GridToJson(grid)[collection].toArray();
    return items.isEmpty()
               ? QByteArray()
               : QJsonDocument(WithoutDefaults(items, collection)).toJson(QJsonDocument::Compact);
}

void GridCollectionFromText(TzuGridCore &grid, const QString &collection, const QByteArray &text)
{
    QJsonParseError error;
    const QJsonDocument document =
        QJsonDocument::fromJson(text.trimmed().isEmpty() ? QByteArrayLiteral("[]") : text, &error);
    if (!document.isArray()) {
        throw std::invalid_argument(error.error != QJsonParseError::NoError
                                        ? error.errorString().toStdString()
                                        : "A list is expected");
    }
    GridFromJson(grid, {{collection, document.array()}});
}

void SetGridCollectionText(TzuGridCore &grid, const char *collection, const QByteArray &text)
{
    try {
        GridCollectionFromText(grid, QLatin1String(collection), text);
    } catch (const std::invalid_argument &error) {
        qWarning("%s of a grid: %s", collection, error.what());
    }
}

QJsonObject GridToJson(const TzuGridCore &grid)
{
    return {{"Columns", ItemsToJson(grid.Columns())},
            {"SubGrids", ItemsToJson(grid.SubGrids())},
            {"CellLayouts", ItemsToJson(grid.CellLayouts())}};
}

void GridFromJson(TzuGridCore &grid, const QJsonObject &json)
{
    for (const char *name : {"Columns", "SubGrids", "CellLayouts"}) {
        CheckItems(json[QLatin1String(name)]);
    }
    ItemsFromJson(grid.CellLayouts(), json["CellLayouts"]);
    ItemsFromJson(grid.SubGrids(), json["SubGrids"]);
    ItemsFromJson(grid.Columns(), json["Columns"]);
}

} // namespace korvane
