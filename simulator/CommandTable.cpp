#include "simulator/CommandTable.h"

namespace tarnbridge::simulator {

CommandTable MakeCommandTable() {
    CommandTable table;
    AddBasicCommands(table);
    AddNetworkCommands(table);
    AddSessionCommands(table);
    AddMessageCommands(table);
    AddPhonebookCommands(table);
    return table;
}

}  // namespace tarnbridge::simulator
