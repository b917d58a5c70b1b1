// Random input on a whole grid that is edited meanwhile.
#include "grid/qt/zuGrid.h"
#include "support/Monkey.h"

#include <QMenu>

#include <array>
#include <gtest/gtest.h>
#include <memory>
#include <stdexcept>
#include <string>

using namespace korvane;

namespace {

class GridMonkey : public test::TMonkey
{
public:
    explicit GridMonkey(unsigned seed)
        : TMonkey(seed)
        , m_grid(std::make_unique<TzuGrid>())
    {
        m_grid->resize(400, 250);
        m_grid->SetMultiSelect(true);
        m_grid->SetAutoEditMode(true);
        m_grid->SetUserSortEnable(true);
        m_grid->setContextMenuPolicy(Qt::NoContextMenu);
        m_grid->SubGrids().Add().SetName("Inner");
        m_grid->SubGrids().At(0).SetHasHeaders(true);
        m_grid->SubGrids().At(0).Columns().Add();
        m_grid->SubGrids().At(0).Columns().Add().SetKind(TColumnKind::tckDate);
        for (int kind = 0; kind < 7; ++kind) {
            AddColumn(static_cast<TColumnKind>(kind));
        }
        m_grid->AddRows(60);
        WireHandlers();
        m_grid->show();
        m_grid->activateWindow();
        QCoreApplication::processEvents();
    }

    std::string Complaint() override
    {
        const TGridCellAt focus = m_grid->FocusCell();
        if (focus && !Exists(focus)) {
            return "the focus is on a cell that is gone";
        }
        if (m_grid->IsEditing() != (m_grid->EditorField() != nullptr)) {
            return "there is an editor without an edit, or the other way round";
        }
        if (m_grid->IsEditing()
            && (!Exists(m_grid->EditedCell()) || m_grid->EditedCell() != focus)) {
            return "what is edited is not the cell with the focus";
        }
        return m_open == 0 ? std::string() : "a change of the user was not ended";
    }

private:
    void AddColumn(TColumnKind kind)
    {
        TzuGrid_Column &column = m_grid->Columns().Add();
        column.SetKind(kind);
        column.SetSubGridName("Inner");
        column.SetSortEnable(true);
    }
    void WireHandlers()
    {
        m_grid->OnInitSubGrid = [](TObject *, TBabSubGridCell *inner, auto *, auto *) {
            inner->Rows().AddNew(nullptr);
            inner->Rows().AddNew(nullptr);
        };
        m_grid->OnBeginUserChange = [this](auto &&...) { ++m_open; };
        m_grid->OnEndUserChange = [this](TObject *, TGridUserChange, bool changed) {
            --m_open;
            m_changes += changed ? 1 : 0;
        };
        m_grid->OnEditStop = [this](TObject *, TCellEdit &edit) {
            switch (Pick(12)) {
            case 0:
                edit.Allow = false;
                break;
            case 1:
                throw std::runtime_error("no");
            case 2:
                edit.At.Grid->Rows().Drop(edit.At.Row);
                break;
            case 3:
                m_grid->Columns().Move(0, m_grid->Columns().Count() - 1);
                break;
            default:
                break;
            }
        };
    }
    static bool Exists(const TGridCellAt &at)
    {
        return at.Column < at.Grid->Columns().Count() && at.Row < at.Grid->Rows().Count();
    }

    QWidget *Target() const override { return m_grid.get(); }
    QWidget *KeyTarget() override
    {
        QWidget *field = m_grid->EditorField();
        return field != nullptr ? field : m_grid.get();
    }
    void ChooseTarget() override {}
    void ChoosePlace() override
    {
        const TRect cell = m_grid->CellRect(
            {&m_grid->RootCell(), Pick(m_grid->Columns().Count()), Pick(1) == 0 ? 0 : Pick(12)});
        m_at = Pick(2) == 0 || cell.IsEmpty() ? AnyPlaceOn(*m_grid) : AnyPlaceIn(cell);
    }
    void ChangeContent() override
    {
        TAxisContentList &rows = m_grid->RootCell().Rows();
        switch (Pick(7)) {
        case 0:
            m_grid->AddRows(1 + Pick(3));
            break;
        case 1:
            if (rows.Count() > 20) {
                rows.Drop(1 + Pick(rows.Count() - 2));
            }
            break;
        case 2:
            rows.InsertNew(1 + Pick(rows.Count() - 2), nullptr);
            break;
        case 3:
            m_grid->PasteText(Pick(1) == 0 ? "a\tb\nc\td" : "2024-05-06");
            break;
        case 4:
            m_grid->ClearCells();
            break;
        case 5:
            if (m_grid->FocusCell()) {
                m_grid->BeginEdit(m_grid->FocusCell(), TEditBegin::Whole);
            }
            break;
        default:
            if (QWidget *field = m_grid->EditorField()) {
                for (const int key : {Qt::Key_2, Qt::Key_Minus, Qt::Key_3}) {
                    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier,
                                    QString(QChar(static_cast<char16_t>(key))));
                    QCoreApplication::sendEvent(field, &event);
                }
            }
            break;
        }
    }
    void ChangeView() override
    {
        TzuGrid_Column &column = m_grid->Columns().At(Pick(m_grid->Columns().Count() - 1));
        switch (Pick(6)) {
        case 0:
            column.SetHidden(!column.Hidden());
            break;
        case 1:
            column.SetKind(static_cast<TColumnKind>(Pick(6)));
            break;
        case 2:
            m_grid->SetRowSelect(!m_grid->RowSelect());
            break;
        case 3:
            m_grid->SetHasInfoCol(!m_grid->HasInfoCol());
            break;
        case 4:
            m_grid->SetSortKeys({{&column, Pick(1) == 0}});
            break;
        case 5:
            m_grid->setLayoutDirection(Pick(1) == 0 ? Qt::RightToLeft : Qt::LeftToRight);
            break;
        default:
            m_grid->resize(200 + Pick(300), 100 + Pick(300));
            break;
        }
    }

    std::unique_ptr<TzuGrid> m_grid;
    int m_open = 0;
};

TEST(GridMonkey, PlaysWithoutBreakingAnything)
{
    test::LetPlay<GridMonkey>();
}

} // namespace
