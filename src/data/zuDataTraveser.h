// Lists of data lists, and the walk over all their entities.
#pragma once

#include "data/zuDataListLevels.h"
#include "data/zuDataListTrav.h"
