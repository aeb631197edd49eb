#pragma once

#include "compare/CompareRow.h"

#include <cstddef>
#include <functional>
#include <stop_token>
#include <string>
#include <vector>

namespace quarnel {

/// Makes the row of one file; called on several threads at a time.
using CompareReader = std::function<CompareRow(const std::string& file)>;
/// Gets each row in the order of the files, one at a time, on the worker that completed the order.
using CompareTaker = std::function<void(std::size_t index, CompareRow row)>;

/// Reads every file with `read` on `jobs` workers, each of which takes the next file, and hands the
/// rows to `take` in the order of the files, whoever read them. Comes back when all are done; a
/// request to stop ends it within the file that each worker has in hand, and no later row is
/// handed over. An exception of `read` or `take` ends the run and comes out of it.
/// True when every row was handed over.
bool ReadCompareRows(const std::vector<std::string>& files, std::size_t jobs,
                     const CompareReader& read, const CompareTaker& take,
                     const std::stop_token& stop = {});

} // namespace quarnel
