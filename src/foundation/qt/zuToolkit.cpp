#include "foundation/qt/zuToolkit.h"

#include "foundation/qt/zuConvert.h"
#include "foundation/qt/zuLocale.h"
#include "foundation/zuDoLater.h"
#include "foundation/zuReport.h"
#include "foundation/zuSynchronize.h"
#include "foundation/zuTranslate.h"

#include <QApplication>
#include <QEvent>
#include <QMessageBox>
#include <QObject>
#include <QPointer>
#include <QThread>

#include <exception>
#include <iostream>
#include <string>
#include <utility>

namespace korvane {

namespace {

constexpr auto kRunQueue = static_cast<QEvent::Type>(40925);
constexpr auto kDestroyWindow = static_cast<QEvent::Type>(40926);

/// What the events of the deferred calls are posted to.
class TDoLaterWindow : public QObject
{
public:
    TDoLaterWindow()
    {
        setObjectName(QStringLiteral("TDoLaterWindow"));
        if (QCoreApplication *application = QCoreApplication::instance()) {
            moveToThread(application->thread());
        }
    }

    /// Safe within its own event.
    void Destroy()
    {
        if (m_eventDepth > 0) {
            deleteLater();
        } else {
            delete this;
        }
    }

    bool event(QEvent *event) override
    {
        const bool ours = event->type() == kRunQueue || event->type() == kDestroyWindow;
        if (!ours) {
            return QObject::event(event);
        }
        // Running the queue may destroy whatever it likes, the application's loop included.
        const QPointer<QObject> self(this);
        ++m_eventDepth;
        event->type() == kRunQueue ? RunQueue() : TDoLater::FreeDoLaterWindow();
        if (!self.isNull()) {
            --m_eventDepth;
        }
        return true;
    }

private:
    /// The event loop cannot carry exceptions; the failed call stays queued.
    static void RunQueue()
    {
        try {
            TDoLater::DoAllNow();
        } catch (const std::exception &error) {
            Report(error.what());
        } catch (...) {
            Report("A deferred call failed");
        }
    }

    int m_eventDepth = 0;
};

/// Never destroyed itself: the queue asks for it when the process ends.
QPointer<TDoLaterWindow> &Window()
{
    static auto &window = *new QPointer<TDoLaterWindow>;
    return window;
}

bool s_finishRegistered = false;

void DestroyWindow()
{
    if (TDoLaterWindow *window = std::exchange(Window(), nullptr).data()) {
        window->Destroy();
    }
}

/// Runs while the application object is still there; nothing is delivered any more afterwards.
void FinishDeferredCalls()
{
    s_finishRegistered = false;
    try {
        TDoLater::DoAllNow();
    } catch (...) {
        std::cerr << "A deferred call failed at the end of the application\n";
    }
    DestroyWindow();
}

void PostRun()
{
    if (QCoreApplication::instance() == nullptr) {
        return;
    }
    if (Window() == nullptr) {
        Window() = new TDoLaterWindow; // NOLINT: DestroyWindow frees it
    }
    if (!std::exchange(s_finishRegistered, true)) {
        qAddPostRoutine(FinishDeferredCalls);
    }
    QCoreApplication::postEvent(Window(), new QEvent(kRunQueue));
}

void RunPosted()
{
    try {
        TSynchronize::RunPosted();
    } catch (const std::exception &error) {
        Report(error.what());
    } catch (...) {
        Report("A call from a worker thread failed");
    }
}

/// From any thread.
void WakeMainThread()
{
    if (QCoreApplication *application = QCoreApplication::instance()) {
        QMetaObject::invokeMethod(application, RunPosted, Qt::QueuedConnection);
    }
}

/// From any thread. English has its plurals without a catalogue.
std::string TranslatedByQt(const char *context, const char *text, const char *comment, int n)
{
    return Untranslated(FromQt(QCoreApplication::translate(context, text, comment, n)), n);
}

bool HasScreenForBoxes()
{
    return qobject_cast<QApplication *>(QCoreApplication::instance()) != nullptr
           && QGuiApplication::platformName() != QLatin1String("offscreen")
           && QGuiApplication::platformName() != QLatin1String("minimal");
}

void ShowBox(const QString &text)
{
    // The same trouble again and again needs no further box.
    static QPointer<QMessageBox> last;
    if (last != nullptr && last->text() == text) {
        return;
    }
    last = new QMessageBox(QMessageBox::Warning, QGuiApplication::applicationDisplayName(), text,
                           QMessageBox::Ok); // NOLINT: frees itself when it is closed
    last->setAttribute(Qt::WA_DeleteOnClose);
    last->setTextFormat(Qt::PlainText);
    last->setModal(false);
    last->show();
}

void ReportOnScreen(std::string_view text)
{
    if (HasScreenForBoxes()) {
        // Shown from the event loop: a report may come from a worker thread or from a paint.
        QMetaObject::invokeMethod(
            QCoreApplication::instance(), [message = ToQt(text)] { ShowBox(message); },
            Qt::QueuedConnection);
    } else {
        std::cerr << text << '\n';
    }
}

} // namespace

void InstallToolkitServices()
{
    static bool installed = false;
    if (std::exchange(installed, true)) {
        return;
    }
    SetDoLaterTransport({.Post = &PostRun, .Destroy = &DestroyWindow});
    SetSynchronizeTransport(&WakeMainThread);
    if (TReportHook own = SetReportHook(&ReportOnScreen)) {
        SetReportHook(std::move(own));
    }
    if (const TTranslator own = SetTranslator(&TranslatedByQt); own != nullptr) {
        SetTranslator(own);
    }
    if (FormatSettings() == TFormatSettings::Invariant()) {
        SetFormatSettings(FormatSettingsOf(QLocale::system()));
    }
}

} // namespace korvane
