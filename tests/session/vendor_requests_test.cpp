// The private requests a host sends through effVendorSpecific.
#include <cmath>
#include <cstring>
#include <string>

#include "tests/session/session_fixture.h"

namespace {

constexpr int32_t kRange = static_cast<int32_t>(0xDEADBEF0);
constexpr int32_t kTextOfValue = 7;
constexpr int32_t kValueOfText = 27;
constexpr int32_t kSetValue = static_cast<int32_t>(0xDEADBF0F);
constexpr int32_t kDescribe = static_cast<int32_t>(0xDEADBF10);
constexpr int32_t kSetEnabled = static_cast<int32_t>(0xDEADBF11);
constexpr int32_t kGetEnabled = static_cast<int32_t>(0xDEADBF12);

class VendorRequests : public SessionTest {
protected:
    std::string textOfValue(int32_t p, float v) {
        char text[256] = "unchanged";
        session->vendorSpecific(kTextOfValue, p, text, v);
        return text;
    }
    std::string valueOfText(int32_t p, const char* typed) {
        char text[256];
        std::strcpy(text, typed);
        EXPECT_EQ(session->vendorSpecific(kValueOfText, p, text), 0xBEEF);
        return text;
    }
    // Address and value that describe parameter p.
    std::pair<int32_t, float> describe(int32_t p) {
        int32_t address = p;
        float value = -1.0f;
        EXPECT_EQ(session->vendorSpecific(kDescribe, reinterpret_cast<intptr_t>(&address), &value), 1);
        return {address, value};
    }
    intptr_t setValue(int32_t address, float value) {
        return session->vendorSpecific(kSetValue, reinterpret_cast<intptr_t>(&address), nullptr, value);
    }
    float enabledOf(int32_t address) {
        float value = -1.0f;
        EXPECT_EQ(session->vendorSpecific(kGetEnabled, reinterpret_cast<intptr_t>(&address), &value), 1);
        return value;
    }
    // A chunk view of band i: type, enabled and the three values.
    struct BandState {
        int32_t type, enabled;
        double frequency, gain, bandwidth;
    };
    BandState bandState(int i) {
        std::vector<uint8_t> chunk = session->chunk();
        BandState s{};
        const uint8_t* record = chunk.data() + 8 + 33 * i;
        std::memcpy(&s.type, record, 4);
        std::memcpy(&s.enabled, record + 4, 4);
        std::memcpy(&s.frequency, record + 8, 8);
        std::memcpy(&s.gain, record + 16, 8);
        std::memcpy(&s.bandwidth, record + 24, 8);
        return s;
    }
    double outputGain() {
        std::vector<uint8_t> chunk = session->chunk();
        double gain;
        std::memcpy(&gain, chunk.data() + chunk.size() - 20, 8);
        return gain;
    }
};

TEST_F(VendorRequests, RangeOfGainAndFrequencyParameters) {
    double range[3] = {-1, -1, -1};
    EXPECT_EQ(session->vendorSpecific(kRange, 1, range), 0xBEEF);
    EXPECT_EQ(range[0], 0.0);
    EXPECT_EQ(range[1], 1.0);
    EXPECT_EQ(range[2], 0.25);
    EXPECT_EQ(session->vendorSpecific(kRange, 0, range), 0xBEEF);
    EXPECT_EQ(range[2], 0.5);
    EXPECT_EQ(session->vendorSpecific(kRange, 12, range), 0);
    EXPECT_EQ(session->vendorSpecific(kRange, -1, range), 0);
}

TEST_F(VendorRequests, DisplayTextOfAnyValue) {
    EXPECT_EQ(textOfValue(1, 0.0f), "-150.0");
    EXPECT_EQ(textOfValue(1, 0.25f), "0.0");
    EXPECT_EQ(textOfValue(1, 1.0f), "12.0");
    EXPECT_EQ(textOfValue(0, 0.0f), "20.0");
    EXPECT_EQ(textOfValue(2, 2.0f), "4.00");
    EXPECT_EQ(textOfValue(12, 0.5f), "");
}

TEST_F(VendorRequests, ValueOfDisplayText) {
    EXPECT_EQ(valueOfText(6, "1000"), "0.476049");
    EXPECT_EQ(valueOfText(1, "0"), "0.250000");
    EXPECT_EQ(valueOfText(2, "-6"), "0.000000");
    EXPECT_EQ(valueOfText(0, "10"), "0.000000");
    EXPECT_EQ(valueOfText(0, "30000"), "1.000000");
    EXPECT_EQ(valueOfText(1, ""), "");
}

TEST_F(VendorRequests, DescribesBandsByKindAndRank) {
    // Third band overall, the second of type Band: parameter 1, ordinal 1, kind 2.
    auto [address, value] = describe(7);
    EXPECT_EQ(address, 0x0112);
    EXPECT_EQ(value, 0.5f);
    session->setParameter(7, 1.0f);  // gain 4.0
    EXPECT_EQ(describe(7).second, 1.0f);
    EXPECT_EQ(describe(0).first, 0x0001);  // frequency of the first low shelf
    EXPECT_EQ(describe(11).first, 0x0204);
    auto [outputAddress, outputValue] = describe(-1);
    EXPECT_EQ(outputAddress, 0xFFFFFF);
    EXPECT_EQ(outputValue, 1.0f);
    EXPECT_EQ(describe(12).first, 0xFFFFFF);
}

TEST_F(VendorRequests, SettingAMissingHighPassCreatesThreeAndTellsTheHost) {
    session->clearHostCalls();
    EXPECT_EQ(setValue(0x10000 | 0x0020, 0.5f), 1);
    EXPECT_EQ(session->parameterCount(), 21);
    for (int i = 4; i < 7; ++i) {
        BandState band = bandState(i);
        EXPECT_EQ(band.type, 4);
        EXPECT_EQ(band.gain, 1.0);
        EXPECT_EQ(band.bandwidth, 2.0);
        if (i < 6) EXPECT_EQ(band.frequency, 4000.0);
    }
    double expected = (std::exp(0.5 / 0.16683457378359495) - 1.0) * 23980.0 * 0.0025 + 20.0;
    EXPECT_EQ(bandState(6).frequency, expected);
    std::vector<HostCall> notices = callsWith(audioMasterVendorSpecific);
    ASSERT_EQ(notices.size(), 3u);
    for (int i = 0; i < 3; ++i) {
        ASSERT_TRUE(notices[i].paramListChange);
        EXPECT_EQ(notices[i].paramListChange->first, 12 + 3 * i);
        EXPECT_EQ(notices[i].paramListChange->delta, 3);
    }
    std::vector<HostCall> automation = callsWith(audioMasterAutomate);
    ASSERT_EQ(automation.size(), 2u);
    EXPECT_EQ(automation[0].index, -1);
    EXPECT_EQ(automation[1].index, 18);
    EXPECT_FLOAT_EQ(automation[1].opt, session->parameter(18));
}

TEST_F(VendorRequests, OutputGainAddress) {
    EXPECT_EQ(setValue(0xFFFF, 0.5f), 1);
    EXPECT_EQ(outputGain(), 0.5);
    EXPECT_EQ(describe(-1).second, 0.5f);
}

TEST_F(VendorRequests, RealGainAndBandwidthAreLimited) {
    EXPECT_EQ(setValue(0x0102, 100.0f), 1);  // gain of the first Band
    EXPECT_EQ(bandState(1).gain, 64.0);
    EXPECT_EQ(setValue(0x10102, 0.75f), 1);  // normalized: (0.75 - 0.5) * 6 + 1
    EXPECT_EQ(bandState(1).gain, 2.5);
    EXPECT_EQ(setValue(0x0202, -3.0f), 1);
    EXPECT_EQ(bandState(1).bandwidth, 0.0);
}

TEST_F(VendorRequests, EnablingAMissingNotchCreatesItEnabled) {
    int32_t notch = 0x0003;
    EXPECT_EQ(enabledOf(notch), 0.0f);
    EXPECT_EQ(session->vendorSpecific(kSetEnabled, reinterpret_cast<intptr_t>(&notch), nullptr, 1.0f), 1);
    EXPECT_EQ(session->parameterCount(), 15);
    EXPECT_EQ(bandState(4).type, 6);
    EXPECT_EQ(bandState(4).frequency, 1000.0);
    EXPECT_EQ(enabledOf(notch), 1.0f);
    EXPECT_EQ(session->vendorSpecific(kSetEnabled, reinterpret_cast<intptr_t>(&notch), nullptr, 0.0f), 1);
    EXPECT_EQ(enabledOf(notch), 0.0f);
    int32_t missingLowPass = 0x0005;
    session->vendorSpecific(kSetEnabled, reinterpret_cast<intptr_t>(&missingLowPass), nullptr, 0.0f);
    EXPECT_EQ(session->parameterCount(), 15);
}

TEST_F(VendorRequests, NullPointersAndUnknownIndicesAnswerZero) {
    for (int32_t index : {kSetValue, kDescribe, kSetEnabled, kGetEnabled})
        EXPECT_EQ(session->vendorSpecific(index, 0, nullptr), 0);
    EXPECT_EQ(session->vendorSpecific(kRange, 0, nullptr), 0);
    EXPECT_EQ(session->vendorSpecific(12345, 0, nullptr), 0);
    int32_t address = 0x0001;
    EXPECT_EQ(session->vendorSpecific(kGetEnabled, reinterpret_cast<intptr_t>(&address), nullptr), 1);
    EXPECT_EQ(session->vendorSpecific(kDescribe, reinterpret_cast<intptr_t>(&address), nullptr), 1);
}

}  // namespace
