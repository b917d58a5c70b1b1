#include "Autosave.h"

#include "PlanDocument.h"
#include "plan/PlanSaver.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QStandardPaths>

#include <chrono>

namespace korvane::planner {

namespace {

constexpr std::chrono::seconds kQuietTime{5};
constexpr std::chrono::minutes kLatestTime{2};

const QString kCopySuffix = QStringLiteral(".xml.gz");
const QString kNameSuffix = QStringLiteral(".name");

QDir Folder()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation)
           + QStringLiteral("/autosave");
}

QString KeyOf(const QString &fileName)
{
    const QByteArray hash =
        QCryptographicHash::hash(fileName.toUtf8(), QCryptographicHash::Sha256).toHex();
    return Folder().filePath(QString::fromLatin1(hash.left(32)));
}

std::unique_ptr<QLockFile> NewLock(const QString &fileName)
{
    auto lock = std::make_unique<QLockFile>(KeyOf(fileName) + QStringLiteral(".lock"));
    lock->setStaleLockTime(0); // only a planner that is gone loses its lock
    return lock;
}

/// Beside the copy lies the name of its file.
std::optional<QString> Write(const Plan &plan, const PlanSource *source, const QString &fileName)
{
    QFile name(KeyOf(fileName) + kNameSuffix);
    if (!name.open(QIODevice::WriteOnly) || name.write(fileName.toUtf8()) < 0) {
        return name.errorString();
    }
    return SavePlan(plan, source, Autosave::CopyOf(fileName));
}

void Remove(const QString &fileName)
{
    QFile::remove(Autosave::CopyOf(fileName));
    QFile::remove(KeyOf(fileName) + kNameSuffix);
}

} // namespace

Autosave::Autosave(PlanDocument &document, QObject *parent)
    : QObject(parent)
    , m_document(document)
{
    for (QTimer *timer : {&m_quiet, &m_latest}) {
        timer->setSingleShot(true);
        connect(timer, &QTimer::timeout, this, &Autosave::WriteCopy);
    }
    m_quiet.setInterval(kQuietTime);
    m_latest.setInterval(kLatestTime);
    connect(&document, &PlanDocument::fileNameChanged, this, &Autosave::FollowDocument);
    connect(&document, &PlanDocument::changed, this, &Autosave::PlanChanged);
    connect(&document, &PlanDocument::modifiedChanged, this, [this](bool modified) {
        if (modified) {
            PlanChanged(); // a first change is announced before the plan counts as modified
        } else {
            Discard();
        }
    });
}

Autosave::~Autosave()
{
    Wait();
}

QString Autosave::CopyOf(const QString &fileName)
{
    return KeyOf(fileName) + kCopySuffix;
}

QString Autosave::LeftBehind()
{
    for (const QFileInfo &copy :
         Folder().entryInfoList({u'*' + kCopySuffix}, QDir::Files, QDir::Time)) {
        QFile name(copy.path() + u'/' + copy.fileName().chopped(kCopySuffix.size()) + kNameSuffix);
        if (name.open(QIODevice::ReadOnly)) {
            const QString fileName = QString::fromUtf8(name.readAll());
            if (QFile::exists(fileName) && NewLock(fileName)->tryLock()) {
                return fileName;
            }
        }
    }
    return {};
}

std::optional<QDateTime> Autosave::Recoverable() const
{
    const QFileInfo copy(CopyOf(m_fileName));
    const bool isLater = copy.lastModified() > QFileInfo(m_fileName).lastModified();
    return m_lock != nullptr && m_lock->isLocked() && copy.exists() && isLater
               ? std::optional(copy.lastModified())
               : std::nullopt;
}

void Autosave::Discard()
{
    m_quiet.stop();
    m_latest.stop();
    if (m_lock == nullptr || !m_lock->isLocked()) {
        return;
    }
    if (IsWriting()) {
        m_job = std::async(std::launch::async,
                           [job = std::move(m_job), fileName = m_fileName]() mutable {
                               job.wait();
                               Remove(fileName);
                               return std::optional<QString>();
                           });
    } else {
        Remove(m_fileName);
    }
}

bool Autosave::HoldsLock()
{
    return m_lock != nullptr && (m_lock->isLocked() || m_lock->tryLock());
}

/// The copy of the former file goes with it; one that already lies there for the same file stays.
void Autosave::FollowDocument()
{
    if (m_fileName == m_document.FileName()) {
        return;
    }
    Discard();
    Wait();
    m_fileName = m_document.FileName();
    m_lock.reset();
    if (!m_fileName.isEmpty() && Folder().mkpath(QStringLiteral("."))) {
        m_lock = NewLock(m_fileName);
        m_lock->tryLock();
    }
}

void Autosave::PlanChanged()
{
    if (m_document.IsModified()) {
        m_quiet.start();
        if (!m_latest.isActive()) {
            m_latest.start();
        }
    }
}

void Autosave::WriteCopy()
{
    if (!m_document.IsModified() || m_lock == nullptr || !m_lock->isLocked()) {
        return;
    }
    if (IsWriting()) {
        m_quiet.start();
        return;
    }
    m_quiet.stop();
    m_latest.stop();
    Wait();
    m_job = std::async(std::launch::async,
                       [plan = m_document.GetPlan(), source = m_document.Source(),
                        fileName = m_fileName] { return Write(plan, source.get(), fileName); });
}

bool Autosave::IsWriting() const
{
    constexpr std::chrono::seconds kAtOnce{0};
    return m_job.valid() && m_job.wait_for(kAtOnce) != std::future_status::ready;
}

void Autosave::Wait()
{
    if (m_job.valid()) {
        if (const auto error = m_job.get()) {
            Q_EMIT failed(*error);
        }
    }
}

} // namespace korvane::planner
