// The extension functions the host serves by name, and its configuration
// variable.
#include <gtest/gtest.h>

#include "contracts/host_extensions.h"
#include "contracts/mura.h"
#include "host/extensions/config_variables.h"
#include "host/extensions/extension_table.h"
#include "host/extensions/fader_curve.h"
#include "host/extensions/real_fft.h"

namespace {

bool isOptionalRasterFunction(const std::string& name) {
    return name == "MURA_MeasureText" || name == "MURA_DrawText";
}

TEST(ExtensionTable, AnswersEachOwnFunctionAndEveryRequiredRasterFunctionByName) {
    EXPECT_EQ(findHostExtension("DB2SLIDER"), reinterpret_cast<void*>(&faderPositionOfDb));
    EXPECT_EQ(findHostExtension("SLIDER2DB"), reinterpret_cast<void*>(&dbOfFaderPosition));
    EXPECT_EQ(findHostExtension("QIT_fft_real_8"), reinterpret_cast<void*>(&fftReal8));
    EXPECT_EQ(findHostExtension("QIT_fft_permute"), reinterpret_cast<void*>(&fftPermute));
    EXPECT_EQ(findHostExtension("get_config_var"), reinterpret_cast<void*>(&findConfigVariable));
    EXPECT_NE(findHostExtension("GetTooltipWindow"), nullptr);
    for (const char* name : kMuraFunctionNames)
        if (!isOptionalRasterFunction(name)) {
            EXPECT_NE(findHostExtension(name), nullptr) << name;
        }
}

TEST(ExtensionTable, AnswersNullForUnknownNames) {
    EXPECT_EQ(findHostExtension("QIT_fft_real_4"), nullptr);
    EXPECT_EQ(findHostExtension("db2slider"), nullptr);  // names are case-sensitive
    EXPECT_EQ(findHostExtension(""), nullptr);
    EXPECT_EQ(findHostExtension(nullptr), nullptr);
}

TEST(ConfigVariable, OctaveOffsetIsAFourByteIntegerFollowingTheHost) {
    auto getConfigVar = reinterpret_cast<GetConfigVarProc>(findHostExtension("get_config_var"));
    int size = 0;
    auto* offset = static_cast<int32_t*>(getConfigVar("midioctoffs", &size));
    ASSERT_NE(offset, nullptr);
    EXPECT_EQ(size, 4);
    setMidiOctaveOffset(-1);
    EXPECT_EQ(*offset, -1);
    setMidiOctaveOffset(2);
    EXPECT_EQ(*offset, 2);
    EXPECT_EQ(midiOctaveOffsetSetting(), 2);
    setMidiOctaveOffset(0);
    EXPECT_EQ(getConfigVar("midioctoffs", nullptr), offset);  // the size may be skipped
}

TEST(ConfigVariable, UnknownVariablesHaveNoStorageAndSizeZero) {
    int size = 99;
    EXPECT_EQ(findConfigVariable("midioctoffset", &size), nullptr);
    EXPECT_EQ(size, 0);
    size = 99;
    EXPECT_EQ(findConfigVariable(nullptr, &size), nullptr);
    EXPECT_EQ(size, 0);
}

}  // namespace
