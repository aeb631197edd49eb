#pragma once

#include <string>

namespace quarnel::test {

/// The folder of this checkout. One source holds it, so that a cache of compiled sources serves
/// every checkout.
std::string SourceFolder();

} // namespace quarnel::test
