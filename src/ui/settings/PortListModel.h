#pragma once

#include <QAbstractListModel>
#include <string>
#include <vector>

#include "platform/PortMap.h"

namespace tarnbridge {

/// The ports that can be chosen: those that are plugged in, and the one in use whether it is or not.
class PortListModel : public QAbstractListModel {
    Q_OBJECT

public:
    enum Role { NumberRole = Qt::UserRole };

    PortListModel(EntryStore& store, QObject* parent);

    /// Looks for what is plugged in. Nothing is told when nothing has changed.
    void Refresh(int numberInUse);

    /// The number of a device that the user names, which has one from now on; 0 if there is no such device.
    int Add(const std::string& device);

    int RowOf(int number) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

private:
    struct Row {
        int number;
        std::string device;
        bool pluggedIn;
        bool operator==(const Row&) const = default;
    };

    PortMap ports_;
    std::vector<Row> rows_;
};

}  // namespace tarnbridge
