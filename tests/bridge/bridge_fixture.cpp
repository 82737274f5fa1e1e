#include "tests/bridge/bridge_fixture.h"

#include "tests/bridge/install_folder.h"

LoadedPlugin& builtBridge() {
    static LoadedPlugin bridge(bridgePathIn(builtBridgeFolder()));
    return bridge;
}
