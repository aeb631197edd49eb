#pragma once

#include "app/RecoveryCopy.h"

class QWidget;

namespace quarnel {

/// Asks whether a copy that was left behind is to be restored, naming its project and time. The
/// question stands on "Restore"; the other answer is "Discard".
bool WantsToRestore(QWidget* parent, const LeftCopy& copy);

} // namespace quarnel
