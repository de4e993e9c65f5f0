#include "ui/settings/PortListModel.h"

#include <algorithm>

#include "platform/Text.h"
#include "ui/QtText.h"

namespace tarnbridge {

PortListModel::PortListModel(EntryStore& store, QObject* parent)
    : QAbstractListModel(parent), ports_(store) {}

void PortListModel::Refresh(int numberInUse) {
    std::vector<Row> rows;
    for (const int number : ports_.Enumerate())
        rows.push_back({number, ports_.DeviceOf(number).value_or(""), true});
    const auto place = std::lower_bound(rows.begin(), rows.end(), numberInUse,
                                        [](const Row& row, int number) { return row.number < number; });
    if (place == rows.end() || place->number != numberInUse)
        rows.insert(place, {numberInUse, ports_.DeviceOf(numberInUse).value_or(""), false});
    if (rows == rows_) return;
    beginResetModel();
    rows_ = std::move(rows);
    endResetModel();
}

int PortListModel::Add(const std::string& device) {
    std::error_code ignored;
    if (!std::filesystem::exists(device, ignored)) return 0;
    return ports_.NumberOf(device);
}

int PortListModel::RowOf(int number) const {
    const auto row = std::find_if(rows_.begin(), rows_.end(),
                                  [number](const Row& candidate) { return candidate.number == number; });
    return row == rows_.end() ? -1 : static_cast<int>(row - rows_.begin());
}

int PortListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

QVariant PortListModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    const Row& row = rows_[static_cast<size_t>(index.row())];
    if (role == NumberRole) return row.number;
    if (role == Qt::ToolTipRole) return PathToQString(row.device);
    if (role != Qt::DisplayRole) return {};
    QString text = QStringLiteral("COM%1").arg(row.number);
    if (!row.device.empty()) text += QStringLiteral(" - ") + PathToQString(row.device);
    return row.pluggedIn ? text : QWords(Word::SettingsPortAway, {ToText(text)});
}

}  // namespace tarnbridge
