#include "ui/messages/StoredLayout.h"

#include <algorithm>

namespace tarnbridge {
namespace {

constexpr int narrowest = 20;
constexpr int widest = 10'000;

}  // namespace

bool AreUsable(const std::vector<int32_t>& sizes, size_t count) {
    return sizes.size() == count && std::all_of(sizes.begin(), sizes.end(), [](int32_t size) {
               return size >= narrowest && size <= widest;
           });
}

std::vector<int32_t> PathOf(QModelIndex index) {
    std::vector<int32_t> path;
    for (; index.isValid(); index = index.parent())
        path.push_back(index.row());
    std::reverse(path.begin(), path.end());
    return path;
}

QModelIndex IndexAt(const QAbstractItemModel& model, const std::vector<int32_t>& path) {
    QModelIndex index;
    for (const int32_t row : path) {
        const QModelIndex next = model.index(row, 0, index);
        if (!next.isValid()) break;
        index = next;
    }
    return index;
}

}  // namespace tarnbridge
