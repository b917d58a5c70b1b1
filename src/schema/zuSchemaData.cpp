#include "schema/zuSchemaData.h"

#include "schema/zuSchema.h"

#include <utility>

namespace korvane {

namespace {

TzuDataList_Schema *ListOf(TzuDataList &list)
{
    return dynamic_cast<TzuDataList_Schema *>(&list);
}

} // namespace

// --- times ---------------------------------------------------------------------------------------

TzuDataEntity_SchemaTime::~TzuDataEntity_SchemaTime()
{
    if (m_indexed == TIndexed::No) {
        return;
    }
    if (auto *list = ListOf(HoldingList()); list != nullptr && list->Schema() != nullptr) {
        list->Schema()->TimeLeft(*this);
    }
}

void TzuDataEntity_SchemaTime::AfterCreate(TzuDataList *list)
{
    TzuDataEntity::AfterCreate(list);
    m_frameColor = clBlack;
    m_color = clWhite;
}

/// The schedule that has the time in its index, or null.
TSchemaCore *TzuDataEntity_SchemaTime::KnownTo() const
{
    return m_indexed != TIndexed::No ? static_cast<TzuDataList_Schema &>(HoldingList()).Schema()
                                     : nullptr;
}

void TzuDataEntity_SchemaTime::BeforeIndexedChange()
{
    if (TSchemaCore *schema = KnownTo()) {
        schema->TimeWillChange(*this);
    }
}

int TzuDataEntity_SchemaTime::SubCol() const
{
    if (TSchemaCore *schema = KnownTo()) {
        schema->SubColumnsNeeded(m_col);
    }
    return m_subCol;
}

bool TzuDataEntity_SchemaTime::InSubCol() const
{
    if (TSchemaCore *schema = KnownTo()) {
        schema->SubColumnsNeeded(m_col);
    }
    return m_inSubCol;
}

void TzuDataEntity_SchemaTime::SetStartDateTime(TDateTime start)
{
    if (start != m_start) {
        BeforeIndexedChange();
        m_start = start;
        DoInfoPush();
    }
}

void TzuDataEntity_SchemaTime::SetStopDateTime(TDateTime stop)
{
    if (stop != m_stop) {
        BeforeIndexedChange();
        m_stop = stop;
        DoInfoPush();
    }
}

void TzuDataEntity_SchemaTime::SetCol(int col)
{
    if (col != m_col) {
        BeforeIndexedChange();
        m_col = col;
        m_inSubCol = false;
        DoInfoPush();
    }
}

const TzuDataEntity_SchemaTime::TTexts &TzuDataEntity_SchemaTime::Texts() const
{
    static const TTexts none;
    return m_texts != nullptr ? *m_texts : none;
}

void TzuDataEntity_SchemaTime::AddText(std::string_view text, int x, int y, int style)
{
    if (m_texts == nullptr) {
        m_texts = std::make_unique<TTexts>();
    }
    m_texts->emplace_back(text, TPoint{x, y}, style);
}

void TzuDataEntity_SchemaTime::AlterText(int index, std::string_view text, int x, int y, int style)
{
    if (index >= 0 && static_cast<std::size_t>(index) < Texts().size()) {
        (*m_texts)[static_cast<std::size_t>(index)] = {text, TPoint{x, y}, style};
    }
}

// --- columns -------------------------------------------------------------------------------------

/// One that goes without any event is still to be forgotten.
TzuDataEntity_SchemaColumn::~TzuDataEntity_SchemaColumn()
{
    if (TDataListColumns *columns = Holder()) {
        columns->Schema().Host().EntityLeft(this);
        columns->SizesChanged();
    }
}

TDataListColumns *TzuDataEntity_SchemaColumn::Columns() const
{
    return CheckedCast<TDataListColumns>(GetDataList());
}

/// Null also before the column is in its list.
TDataListColumns *TzuDataEntity_SchemaColumn::Holder() const
{
    return dynamic_cast<TDataListColumns *>(GetDataList());
}

void TzuDataEntity_SchemaColumn::SetText(std::string_view text)
{
    if (text != m_text) {
        m_text = text;
        if (TDataListColumns *columns = Holder()) {
            columns->CaptionsChanged();
        }
    }
}

int TzuDataEntity_SchemaColumn::SubColCount() const
{
    if (const TDataListColumns *columns = Holder()) {
        columns->Schema().SubColumnsNeeded(columns->IndexOf(this));
    }
    return m_subColCount;
}

int TzuDataEntity_SchemaColumn::GetWidth() const
{
    const TDataListColumns *columns = Columns();
    return columns != nullptr ? GetWidth_FW(columns->Schema().FlipView()) : 0;
}

void TzuDataEntity_SchemaColumn::SetWidth(int value)
{
    if (const TDataListColumns *columns = Columns()) {
        SetWidth_FW(columns->Schema().FlipView(), value);
    }
}

int TzuDataEntity_SchemaColumn::GetWidth_FW(bool flip) const
{
    return m_shownSize[flip ? 1 : 0];
}

void TzuDataEntity_SchemaColumn::SetWidth_FW(bool flip, int value)
{
    int &size = m_shownSize[flip ? 1 : 0];
    if (value != size && value >= 0) {
        size = value;
        if (TDataListColumns *columns = Holder()) {
            columns->SizesChanged();
        }
    }
}

void TzuDataEntity_SchemaColumn::SetSaved(bool flip, int pixels)
{
    int &size = m_savedSize[flip ? 1 : 0];
    if (std::exchange(size, pixels) != pixels) {
        if (TDataListColumns *columns = Holder()) {
            columns->SizesChanged();
        }
    }
}

// --- data lists ----------------------------------------------------------------------------------

TzuDataList_Schema::~TzuDataList_Schema() = default;

void TzuDataList_Schema::Joined(TzuDataEntity &entity)
{
    if (m_schema != nullptr) {
        m_schema->TimeJoined(DataEntity_Schema(entity));
    }
}

void TzuDataList_Schema::Left(TzuDataEntity &entity)
{
    if (m_schema != nullptr) {
        m_schema->TimeLeft(DataEntity_Schema(entity));
    }
}

TzuDataEntity_SchemaTime &DataEntity_Schema(TObject &object)
{
    return dynamic_cast<TzuDataEntity_SchemaTime &>(object);
}

} // namespace korvane
