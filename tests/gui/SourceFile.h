#pragma once

#include "tests/SourceFolder.h"

#include <QString>

namespace quarnel::windowtest {

/// The path of a file of this checkout, given from its folder on: "examples/every-field.qn2".
inline QString SourceFile(const char* name) {
    return QString::fromStdString(test::SourceFolder() + "/" + name);
}

} // namespace quarnel::windowtest
