#pragma once

#include "app/RecoveryCopy.h"

#include <QString>
#include <string>

class QWidget;

namespace quarnel {

/// The name of a project for the user, from the path of its file, which may be none.
QString ProjectName(const std::string& projectFile);

enum class RecoveryAnswer {
    Restore,
    Discard,
    None ///< the program was ended while the question stood
};

/// Asks whether a copy that was left behind is to be restored, naming its project and time. The
/// question stands on "Restore".
RecoveryAnswer AskForLeftCopy(QWidget* parent, const LeftCopy& copy);

} // namespace quarnel
