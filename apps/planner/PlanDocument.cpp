#include "PlanDocument.h"

namespace korvane::planner {

PlanDocument::PlanDocument(QObject *parent)
    : QObject(parent)
{
    connect(&m_history, &QUndoStack::cleanChanged, this,
            [this](bool clean) { Q_EMIT modifiedChanged(!clean); });
}

/// A history that goes announces that it is empty; nobody may hear that any more.
PlanDocument::~PlanDocument()
{
    m_history.disconnect(this);
}

void PlanDocument::SetPlan(Plan plan, const QString &fileName,
                           std::shared_ptr<const PlanSource> source)
{
    const Plan former = std::exchange(m_plan, std::move(plan));
    ++m_revision;
    m_hasPlan = true;
    m_source = std::move(source);
    m_fileName = fileName;
    m_history.clear();
    Q_EMIT replaced();
    Q_EMIT fileNameChanged(m_fileName);
}

void PlanDocument::SetSaved(const QString &fileName, int revision)
{
    if (revision == m_revision) {
        m_history.setClean();
    }
    if (fileName != m_fileName) {
        m_fileName = fileName;
        Q_EMIT fileNameChanged(m_fileName);
    }
}

} // namespace korvane::planner
