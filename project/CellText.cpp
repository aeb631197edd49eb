#include "project/CellText.h"

#include <cstring>
#include <memory>

namespace quarnel {

namespace {

std::string* HeapText(const char* bytes) noexcept {
    std::string* text = nullptr;
    std::memcpy(&text, bytes, sizeof text);
    return text;
}

} // namespace

void CellText::AssignOnHeap(std::string_view text) {
    std::string* heap = std::make_unique<std::string>(text).release();
    std::memcpy(bytes_, &heap, sizeof heap);
    bytes_[15] = static_cast<char>(HeapTag);
}

void CellText::Release() noexcept {
    std::unique_ptr<std::string> owner(HeapText(bytes_));
}

std::string_view CellText::HeapView() const noexcept {
    return *HeapText(bytes_);
}

} // namespace quarnel
