#pragma once

#include <QAbstractItemModel>
#include <cstdint>
#include <iterator>
#include <vector>

namespace tarnbridge {

// What a view keeps of its look in the settings, which is data that anybody can change.

/// Whether these are as many sizes as are needed, of pixels that can be shown.
bool AreUsable(const std::vector<int32_t>& sizes, size_t count);

template <size_t count>
std::vector<int32_t> SizesOr(const std::vector<int32_t>& stored, const int (&otherwise)[count]) {
    if (AreUsable(stored, count)) return stored;
    return std::vector<int32_t>(std::begin(otherwise), std::end(otherwise));
}

/// The places from the root down to an index, and back, as far as there are such places.
std::vector<int32_t> PathOf(QModelIndex index);
QModelIndex IndexAt(const QAbstractItemModel& model, const std::vector<int32_t>& path);

}  // namespace tarnbridge
