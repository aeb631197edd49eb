#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

namespace quarnel {

/// The text of one grid cell, as typed, in UTF-8. A reading is a handful of characters, so up to 15
/// bytes live in the object itself: a logger's million rows then take 32 bytes each instead of the
/// 64 that two std::string would need. Longer texts live on the heap; no text is ever cut.
class CellText {
public:
    CellText() noexcept { SetEmpty(); }
    CellText(std::string_view text) { Assign(text); }
    CellText(const char* text) { Assign(text); }
    CellText(const std::string& text) { Assign(text); }
    CellText(const CellText& other) {
        if (other.IsOnHeap())
            Assign(other.View());
        else
            TakeBytes(other);
    }
    CellText(CellText&& other) noexcept {
        TakeBytes(other);
        other.SetEmpty();
    }
    CellText& operator=(const CellText& other) {
        if (IsOnHeap() || other.IsOnHeap())
            return this == &other ? *this : *this = CellText(other);
        TakeBytes(other);
        return *this;
    }
    CellText& operator=(CellText&& other) noexcept {
        if (this == &other)
            return *this;
        if (IsOnHeap())
            Release();
        TakeBytes(other);
        other.SetEmpty();
        return *this;
    }
    /// Takes over `text`, which may be a part of this text, without a second cell between.
    void Set(std::string_view text) {
        if (IsOnHeap() || text.size() > InlineCapacity)
            *this = CellText(text);
        else
            AssignInline(text);
    }
    ~CellText() {
        if (IsOnHeap())
            Release();
    }

    std::string_view View() const noexcept {
        return IsOnHeap() ? HeapView() : std::string_view(bytes_, InlineSize());
    }
    operator std::string_view() const noexcept { return View(); }
    std::string ToString() const { return std::string(View()); }
    bool empty() const noexcept { return View().empty(); }

    friend bool operator==(const CellText& a, const CellText& b) { return a.View() == b.View(); }
    friend bool operator==(const CellText& a, std::string_view b) { return a.View() == b; }
    friend bool operator==(const CellText& a, const char* b) { return a.View() == b; }

private:
    static constexpr std::size_t InlineCapacity = 15;
    static constexpr unsigned char HeapTag = 0xFF;

    bool IsOnHeap() const noexcept { return static_cast<unsigned char>(bytes_[15]) == HeapTag; }
    std::size_t InlineSize() const noexcept { return static_cast<unsigned char>(bytes_[15]); }
    void SetEmpty() noexcept { bytes_[15] = 0; }
    void TakeBytes(const CellText& other) noexcept {
        std::memcpy(bytes_, other.bytes_, sizeof bytes_);
    }
    void Assign(std::string_view text) {
        if (text.size() <= InlineCapacity)
            AssignInline(text);
        else
            AssignOnHeap(text);
    }
    void AssignInline(std::string_view text) noexcept {
        if (!text.empty())
            std::memmove(bytes_, text.data(), text.size());
        bytes_[15] = static_cast<char>(text.size());
    }
    void AssignOnHeap(std::string_view text);
    void Release() noexcept;
    std::string_view HeapView() const noexcept;

    // Inline: 15 bytes of text and the length. On the heap: a pointer to a std::string and the tag.
    alignas(8) char bytes_[16];
};

static_assert(sizeof(CellText) == 16);

} // namespace quarnel
