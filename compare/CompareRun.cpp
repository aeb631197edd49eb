#include "compare/CompareRun.h"

#include "system/InOrder.h"

namespace quarnel {

bool ReadCompareRows(const std::vector<std::string>& files, std::size_t jobs,
                     const CompareReader& read, const CompareTaker& take,
                     const std::stop_token& stop) {
    // A row is small: all of them may wait for one large file.
    InOrder<CompareRow> rows([&](std::size_t index) { return read(files[index]); }, take,
                             files.size(), stop);
    return rows.Run(files.size(), jobs);
}

} // namespace quarnel
