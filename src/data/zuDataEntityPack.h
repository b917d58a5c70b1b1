// The data model under every component: entities, their lists and the lists' controller.
#pragma once

#include "data/zuDataEntity.h"
#include "data/zuDataList.h"
#include "data/zuEntityClass.h"
#include "data/zuListController.h"
