#pragma once

// The way in to what every room shares: what a check says, the fixed lists, the project's state.

#include "project/FixedLists.h"
#include "project/ProjectState.h"
#include "project/Result.h"
