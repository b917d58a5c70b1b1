// What the user does to the events of a calendar.
#include "EventDialog.h"
#include "ScheduleDocument.h"
#include "ScheduleStrip.h"
#include "ScheduleView.h"
#include "ScheduleWindow.h"
#include "agenda/AgendaDates.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QStatusBar>

#include <algorithm>

namespace korvane::planner {

namespace {

constexpr int kReasonTime = 8000; // milliseconds

QString ClipType()
{
    return QStringLiteral("text/calendar");
}

} // namespace

void ScheduleWindow::MakeEditActions()
{
    const auto add = [this](const QString &text, const QKeySequence &keys, auto handler) {
        QAction *action = m_editMenu->addAction(text, this, handler);
        action->setShortcut(keys);
        return action;
    };
    m_editMenu->addSeparator();
    add(tr("Cu&t"), QKeySequence::Cut, [this] {
        CopyToClipboard();
        Remove(m_view->SelectedBlocks());
    });
    add(tr("&Copy"), QKeySequence::Copy, [this] { CopyToClipboard(); });
    add(tr("&Paste"), QKeySequence::Paste, [this] { Paste(); });
    add(tr("D&uplicate"), QKeySequence(tr("Ctrl+D")), [this] { Duplicate(); });
    // The key itself is the view's, which knows whether it has the focus.
    add(tr("&Delete"), {}, [this] { Remove(m_view->SelectedBlocks()); });
    m_editMenu->addSeparator();
    add(tr("&New event…"), QKeySequence(Qt::Key_Insert), [this] { NewByKey(); });
    add(tr("&Edit event…"), {}, [this] {
        if (const auto blocks = m_view->SelectedBlocks(); !blocks.empty()) {
            Edit(blocks.front());
        }
    });
    m_view->SetPopupMenu(m_editMenu);
    m_view->Strip().SetPopupMenu(m_editMenu);
}

// --- carrying changes out ------------------------------------------------------------------------

void ScheduleWindow::Perform(const Change &change, AgendaScope scope)
{
    ScheduleDocument &document = *m_pages->Document();
    const int steps = document.History().index();
    const SchedulePage page = m_view->Page();
    if (const auto reason = change(page, scope)) {
        statusBar()->showMessage(*reason, kReasonTime);
        QApplication::beep();
    }
    if (document.History().index() == steps) {
        ShowChange(); // as it was
    }
}

void ScheduleWindow::Apply(const std::vector<AgendaScope> &scopes, int block, const Change &change)
{
    if (scopes.empty() || scopes == std::vector{AgendaScope::Occurrence}) {
        Perform(change, AgendaScope::Occurrence);
        return;
    }
    AskForScope(scopes, m_view->Page().Blocks.at(static_cast<std::size_t>(block)).Title,
                [this, change](std::optional<AgendaScope> scope) {
                    if (scope) {
                        Perform(change, *scope);
                    } else {
                        ShowChange(); // everything back in its place
                    }
                });
}

void ScheduleWindow::AskForScope(const std::vector<AgendaScope> &scopes, const QString &title,
                                 std::function<void(std::optional<AgendaScope>)> go)
{
    QMessageBox *box = NewQuestion(tr("“%1” is repeated. What is to be changed?").arg(title), {});
    std::vector<std::pair<QAbstractButton *, AgendaScope>> buttons;
    const std::pair<AgendaScope, QString> texts[] = {
        {AgendaScope::Occurrence, tr("&This occurrence")},
        {AgendaScope::Following, tr("This and &following")},
        {AgendaScope::Series, tr("The whole &series")},
    };
    for (const auto &[scope, text] : texts) {
        if (std::ranges::find(scopes, scope) != scopes.end()) {
            buttons.emplace_back(box->addButton(text, QMessageBox::AcceptRole), scope);
        }
    }
    box->setDefaultButton(static_cast<QPushButton *>(buttons.front().first));
    box->setEscapeButton(box->addButton(QMessageBox::Cancel));
    connect(box, &QMessageBox::finished, this, [box, buttons, go = std::move(go)] {
        const auto chosen = std::ranges::find(buttons, box->clickedButton(),
                                              &std::pair<QAbstractButton *, AgendaScope>::first);
        go(chosen != buttons.end() ? std::optional(chosen->second) : std::nullopt);
    });
    box->open();
}

// --- changes -------------------------------------------------------------------------------------

void ScheduleWindow::Move(const std::vector<ScheduleMove> &moves)
{
    ScheduleDocument *document = m_pages->Document();
    if (document == nullptr || moves.empty()) {
        return;
    }
    Apply(document->ScopesOfMoves(m_view->Page(), moves), moves.front().Block,
          [document, moves](const SchedulePage &page, AgendaScope scope) {
              return document->Move(page, moves, scope);
          });
}

void ScheduleWindow::Copy(const std::vector<ScheduleMove> &moves)
{
    ScheduleDocument *document = m_pages->Document();
    if (document != nullptr && !moves.empty()) {
        Perform([&](const SchedulePage &page, AgendaScope) { return document->Copy(page, moves); },
                AgendaScope::Occurrence);
        m_view->SelectEvents(document->Touched());
    }
}

/// Copies lie beside what they were made of, for the user to move.
void ScheduleWindow::Duplicate()
{
    std::vector<ScheduleMove> moves;
    for (const int block : m_view->SelectedBlocks()) {
        const ScheduleBlock &its = m_view->Page().Blocks.at(static_cast<std::size_t>(block));
        moves.push_back({block, {its.Start, its.Stop}, its.Column});
    }
    Copy(moves);
}

void ScheduleWindow::Remove(const std::vector<int> &blocks)
{
    ScheduleDocument *document = m_pages->Document();
    if (document == nullptr || blocks.empty()) {
        return;
    }
    Apply(document->ScopesOfRemoval(m_view->Page(), blocks), blocks.front(),
          [document, blocks](const SchedulePage &page, AgendaScope scope) {
              return document->Remove(page, blocks, scope);
          });
}

void ScheduleWindow::Edit(int block)
{
    ScheduleDocument *document = m_pages->Document();
    const AgendaOccurrence occurrence = m_view->Page().OccurrenceOf(block);
    auto *dialog =
        new EventDialog(document->Pages().DraftOf(occurrence), document->Calendars(), this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    const bool isPart =
        occurrence.Series >= 0 && ScopesOf(document->GetAgenda(), occurrence).size() == 1;
    if (isPart) {
        dialog->SetPartOfSeries();
    }
    connect(dialog, &QDialog::accepted, this, [this, document, dialog, block] {
        const ScheduleDraft draft = dialog->Draft();
        Apply(document->ScopesOfEdit(m_view->Page(), block, draft), block,
              [document, block, draft](const SchedulePage &page, AgendaScope scope) {
                  return document->Edit(page, block, draft, scope);
              });
    });
    dialog->open();
}

/// That of the active block, or else the first one that events can be put into.
int ScheduleWindow::NewCalendar() const
{
    const ScheduleDocument &document = *m_pages->Document();
    const auto calendars = document.Calendars();
    const auto blocks = m_view->SelectedBlocks();
    if (!blocks.empty()) {
        const AgendaOccurrence &occurrence = m_view->Page().OccurrenceOf(blocks.front());
        const int its = document.GetAgenda().At(occurrence.Event).Calendar;
        if (std::ranges::find(calendars, its, &std::pair<int, QString>::first) != calendars.end()) {
            return its;
        }
    }
    return calendars.front().first;
}

void ScheduleWindow::New(int column, const AgendaRange &times)
{
    ScheduleDocument *document = m_pages->Document();
    const ScheduleColumn &target = m_view->Page().Columns.at(static_cast<std::size_t>(column));
    ScheduleDraft draft;
    draft.Title = tr("New event");
    draft.Times = times;
    draft.IsAllDay = times.From % kSecondsPerDay == 0 && times.To % kSecondsPerDay == 0;
    draft.Place = target.Place.value_or(QString());
    draft.Calendar = target.Calendar.value_or(NewCalendar());
    auto *dialog = new EventDialog(draft, document->Calendars(), this);
    dialog->setWindowTitle(tr("New event"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &QDialog::accepted, this, [this, document, dialog] {
        Perform([&](const SchedulePage &, AgendaScope) { return document->Add(dialog->Draft()); },
                AgendaScope::Occurrence);
        m_view->SelectEvents(document->Touched());
    });
    dialog->open();
}

/// Behind the active block, or in the morning of the column clicked last.
void ScheduleWindow::NewByKey()
{
    constexpr AgendaSeconds kHour = 3600;
    const int column = m_view->TargetColumn();
    const SchedulePage &page = m_view->Page();
    AgendaSeconds start = page.Columns.at(static_cast<std::size_t>(column)).BaseDate + 9 * kHour;
    if (const auto *active = m_view->GetActiveDataEntity();
        active != nullptr && active->Col() == column) {
        start = SecondsOfDate(active->GetStopDateTime());
    }
    New(column, {start, start + kHour});
}

// --- clipboard -----------------------------------------------------------------------------------

void ScheduleWindow::CopyToClipboard()
{
    const std::vector<int> blocks = m_view->SelectedBlocks();
    if (blocks.empty()) {
        return;
    }
    QStringList titles;
    for (const int block : blocks) {
        titles.append(m_view->Page().Blocks.at(static_cast<std::size_t>(block)).ToolTip);
    }
    auto *clip = new QMimeData;
    clip->setText(titles.join(QStringLiteral("\n\n")));
    clip->setData(ClipType(), m_pages->Document()->Clip(m_view->Page(), blocks));
    QApplication::clipboard()->setMimeData(clip);
}

void ScheduleWindow::Paste()
{
    const QMimeData *clip = QApplication::clipboard()->mimeData();
    ScheduleDocument &document = *m_pages->Document();
    const bool hasEvents = clip != nullptr && clip->hasFormat(ClipType());
    if (!hasEvents) {
        statusBar()->showMessage(tr("The clipboard holds no events."), kReasonTime);
        return;
    }
    const ScheduleColumn target =
        m_view->Page().Columns.at(static_cast<std::size_t>(m_view->TargetColumn()));
    const int calendar = target.Calendar.value_or(NewCalendar());
    const QByteArray text = clip->data(ClipType());
    Perform(
        [&](const SchedulePage &, AgendaScope) { return document.Paste(text, target, calendar); },
        AgendaScope::Occurrence);
    m_view->SelectEvents(document.Touched());
}

} // namespace korvane::planner
