#include "cellgrid/zuAxisItem.h"

#include "cellgrid/zuAxisContent.h"
#include "cellgrid/zuBabGridCell.h"

#include <utility>

namespace korvane {

TUserSizeItem::~TUserSizeItem()
{
    for (TAxisContentItem *user : m_users) {
        user->m_userSizeItem = nullptr;
        user->SizeChanged();
    }
}

void TUserSizeItem::SetUserSizeActive(bool active)
{
    if (active != m_userSizeActive) {
        m_userSizeActive = active;
        TellUsers();
    }
}

void TUserSizeItem::SetUserSize(int size)
{
    if (size != m_userSize) {
        m_userSize = size;
        TellUsers();
    }
}

void TUserSizeItem::TellUsers() const
{
    for (TAxisContentItem *user : m_users) {
        user->SizeChanged();
    }
}

TAxisContentItem::~TAxisContentItem()
{
    if (m_userSizeItem != nullptr) {
        m_userSizeItem->m_users.erase(this);
    }
}

int TAxisContentItem::GetUserSize() const
{
    return m_userSizeItem != nullptr ? m_userSizeItem->GetUserSize() : m_userSize;
}

void TAxisContentItem::SetUserSize(int size)
{
    m_userSize = size;
    if (m_userSizeItem != nullptr) {
        m_userSizeItem->SetUserSize(size);
    }
    SizeChanged();
    if (m_list != nullptr) {
        if (TBabGridCellForViewer *viewer = m_list->Viewer()) {
            viewer->UserSizeEvent.TriggerEvent(this);
        }
    }
}

bool TAxisContentItem::GetUserSizeActive() const
{
    return m_userSizeItem != nullptr ? m_userSizeItem->GetUserSizeActive() : m_userSizeActive;
}

void TAxisContentItem::SetUserSizeActive(bool active)
{
    m_userSizeActive = active;
    if (m_userSizeItem != nullptr) {
        m_userSizeItem->SetUserSizeActive(active);
    }
    SizeChanged();
}

void TAxisContentItem::SetUserSizeItem(TUserSizeItem *shared)
{
    if (shared == m_userSizeItem) {
        return;
    }
    if (m_userSizeItem != nullptr) {
        m_userSizeItem->m_users.erase(this);
    }
    m_userSizeItem = shared;
    if (shared != nullptr) {
        shared->m_users.insert(this);
    }
    SizeChanged();
}

void TAxisContentItem::SetAutoSize(int size)
{
    if (size != m_autoSize) {
        m_autoSize = size;
        SizeChanged();
    }
}

int TAxisContentItem::Size() const
{
    return m_list->SizeAt(m_list->IndexOf(*this));
}

int TAxisContentItem::WantedSize() const
{
    if (m_hide) {
        return 0;
    }
    if (GetUserSizeActive()) {
        return GetUserSize() < 0 ? 0 : GetUserSize();
    }
    return m_autoSize == kNotMeasured ? TRunSequence::kDefault : m_autoSize;
}

void TAxisContentItem::SizeChanged()
{
    if (m_list != nullptr && m_loadedChunk != kNoChunk) {
        m_list->SizeChanged(*this);
    }
}

void TAxisContentItem::SetHide(bool hide)
{
    if (hide == m_hide) {
        return;
    }
    m_hide = hide;
    m_list->UpdateHiddenItemsList(*this, hide);
    SizeChanged();
    if (TBabGridCellForViewer *viewer = m_list->Viewer()) {
        viewer->HideEvent.TriggerEvent(nullptr);
    }
}

int TAxisContentItem::ListIndex()
{
    return m_list->ListIndexOf(*this);
}

int TAxisContentItem::LoadedListIndex()
{
    return m_list->IndexConvert_RealToLoaded(ListIndex());
}

} // namespace korvane
