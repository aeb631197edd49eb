#include "recovery/RecoveryData.h"

namespace quarnel {

RecoveryPointList& SharedPoints::Renew(std::size_t capacity) {
    // A list far too large for the new points would keep its memory for nothing.
    if (list_.use_count() != 1 || list_->capacity() / 2 > capacity)
        list_ = std::make_shared<RecoveryPointList>();
    list_->clear();
    list_->reserve(capacity);
    return *list_;
}

RecoveryPointList& SharedPoints::Change() {
    if (list_.use_count() != 1)
        list_ = std::make_shared<RecoveryPointList>(*list_);
    return *list_;
}

} // namespace quarnel
