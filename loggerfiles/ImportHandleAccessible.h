#pragma once

namespace quarnel {

/// Lets screen readers know the movable lines of the import's preview as sliders: a row of the
/// record is their value, told as its time.
void MakeImportHandlesAccessible();

} // namespace quarnel
