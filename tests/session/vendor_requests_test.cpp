// The private requests a host sends through effVendorSpecific.
#include <cmath>
#include <cstring>
#include <string>

#include "tests/engine/chunk_bytes.h"
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
    // Requests whose value is the address of an int32 (or of the parameter index).
    intptr_t request(int32_t index, int32_t address, void* ptr = nullptr, float opt = 0.0f) {
        return session->vendorSpecific(index, reinterpret_cast<intptr_t>(&address), ptr, opt);
    }
    std::pair<int32_t, float> describe(int32_t p) {
        float value = -1.0f;
        int32_t address = p;
        EXPECT_EQ(session->vendorSpecific(kDescribe, reinterpret_cast<intptr_t>(&address), &value), 1);
        return {address, value};
    }
    float enabledOf(int32_t address) {
        float value = -1.0f;
        EXPECT_EQ(request(kGetEnabled, address, &value), 1);
        return value;
    }
    // Frequency, gain and bandwidth of band i, and the output gain, as saved.
    double saved(int band, int field) {
        ChunkBytes chunk{session->chunk()};
        return band < 0 ? chunk.at<double>(chunk.size() - 20) : chunk.at<double>(16 + 33 * band + 8 * field);
    }
    int32_t savedType(int band) { return ChunkBytes{session->chunk()}.at<int32_t>(8 + 33 * band); }
};

TEST_F(VendorRequests, RangeOfGainAndFrequencyParameters) {
    double range[3] = {-1, -1, -1};
    EXPECT_EQ(session->vendorSpecific(kRange, 1, range), 0xBEEF);
    EXPECT_EQ(std::vector<double>(range, range + 3), (std::vector<double>{0.0, 1.0, 0.25}));
    EXPECT_EQ(session->vendorSpecific(kRange, 0, range), 0xBEEF);
    EXPECT_EQ(range[2], 0.5);
    EXPECT_EQ(session->vendorSpecific(kRange, 12, range), 0);
    EXPECT_EQ(session->vendorSpecific(kRange, -1, range), 0);
}

TEST_F(VendorRequests, TextsOfValuesAndValuesOfTexts) {
    struct Case {
        int32_t p;
        float value;
        const char* text;
    } texts[] = {{1, 0.0f, "-150.0"}, {1, 0.25f, "0.0"}, {1, 1.0f, "12.0"},
                 {0, 0.0f, "20.0"},   {2, 2.0f, "4.00"}, {12, 0.5f, ""}};
    for (const Case& c : texts) {
        char text[256] = "unchanged";
        session->vendorSpecific(kTextOfValue, c.p, text, c.value);
        EXPECT_STREQ(text, c.text) << c.p << " at " << c.value;
    }
    struct Typed {
        int32_t p;
        const char *typed, *value;
    } typed[] = {{6, "1000", "0.476049"}, {1, "0", "0.250000"},     {2, "-6", "0.000000"},
                 {0, "10", "0.000000"},   {0, "30000", "1.000000"}, {1, "", ""}};
    for (const Typed& c : typed) {
        char text[256];
        std::strcpy(text, c.typed);
        EXPECT_EQ(session->vendorSpecific(kValueOfText, c.p, text), 0xBEEF);
        EXPECT_STREQ(text, c.value) << c.p << " typed " << c.typed;
    }
}

// Addresses: kind in bits 0-3, rank among bands of that kind in 4-7, field in 8-11.
TEST_F(VendorRequests, DescribesBandsByKindAndRank) {
    // Third band overall, the second of type Band: parameter 1, ordinal 1, kind 2.
    EXPECT_EQ(describe(7), std::pair(0x0112, 0.5f));
    session->setParameter(7, 1.0f);  // gain 4.0
    EXPECT_EQ(describe(7).second, 1.0f);
    EXPECT_EQ(describe(0).first, 0x0001);  // frequency of the first low shelf
    EXPECT_EQ(describe(11).first, 0x0204);
    EXPECT_EQ(describe(-1), std::pair(0xFFFFFF, 1.0f));  // the output gain
    EXPECT_EQ(describe(12).first, 0xFFFFFF);
}

TEST_F(VendorRequests, SettingAMissingHighPassCreatesThreeAndTellsTheHost) {
    session->clearHostCalls();
    EXPECT_EQ(request(kSetValue, 0x10000 | 0x0020, nullptr, 0.5f), 1);
    EXPECT_EQ(session->parameterCount(), 21);
    for (int i = 4; i < 7; ++i) {
        EXPECT_EQ(savedType(i), 4);  // high pass
        EXPECT_EQ(saved(i, 0), i < 6 ? 4000.0 : (std::exp(0.5 / 0.16683457378359495) - 1.0) * 23980.0 * 0.0025 + 20.0);
        EXPECT_EQ(saved(i, 1), 1.0);
        EXPECT_EQ(saved(i, 2), 2.0);
    }
    std::vector<HostCall> notices = callsWith(audioMasterVendorSpecific);
    ASSERT_EQ(notices.size(), 3u);
    for (int i = 0; i < 3; ++i) expectListChange(notices[i], 12 + 3 * i, 3);
    std::vector<HostCall> automation = callsWith(audioMasterAutomate);
    ASSERT_EQ(automation.size(), 2u);
    EXPECT_EQ(automation[0].index, -1);
    EXPECT_EQ(automation[1].index, 18);
    EXPECT_FLOAT_EQ(automation[1].opt, session->parameter(18));
}

// Real values are clamped; normalized ones follow the host's curves: the
// generic gain knob, and for the output gain the host's fader (0.4 is -20 dB).
TEST_F(VendorRequests, SetValuesAreLimitedAndFollowTheHostsCurves) {
    EXPECT_EQ(request(kSetValue, 0x0102, nullptr, 100.0f), 1);  // gain of the first Band
    EXPECT_EQ(saved(1, 1), 64.0);
    EXPECT_EQ(request(kSetValue, 0x10102, nullptr, 0.75f), 1);  // (0.75 - 0.5) * 6 + 1
    EXPECT_EQ(saved(1, 1), 2.5);
    EXPECT_EQ(request(kSetValue, 0x0202, nullptr, -3.0f), 1);
    EXPECT_EQ(saved(1, 2), 0.0);
    EXPECT_EQ(request(kSetValue, 0xFFFF, nullptr, 0.5f), 1);
    EXPECT_EQ(saved(-1, 0), 0.5);
    EXPECT_EQ(describe(-1).second, 0.5f);
    EXPECT_EQ(request(kSetValue, 0x1FFFF, nullptr, 0.4f), 1);
    EXPECT_NEAR(saved(-1, 0), 0.1, 1e-7);
}

TEST_F(VendorRequests, EnablingAMissingNotchCreatesItEnabled) {
    EXPECT_EQ(enabledOf(0x0003), 0.0f);
    EXPECT_EQ(request(kSetEnabled, 0x0003, nullptr, 1.0f), 1);
    EXPECT_EQ(session->parameterCount(), 15);
    EXPECT_EQ(savedType(4), 6);  // notch
    EXPECT_EQ(saved(4, 0), 1000.0);
    EXPECT_EQ(enabledOf(0x0003), 1.0f);
    EXPECT_EQ(request(kSetEnabled, 0x0003, nullptr, 0.0f), 1);
    EXPECT_EQ(enabledOf(0x0003), 0.0f);
    request(kSetEnabled, 0x0005, nullptr, 0.0f);  // switching off a missing low pass
    EXPECT_EQ(session->parameterCount(), 15);
}

TEST_F(VendorRequests, NullPointersAndUnknownIndicesAnswerZero) {
    for (int32_t index : {kSetValue, kDescribe, kSetEnabled, kGetEnabled, kRange, 12345})
        EXPECT_EQ(session->vendorSpecific(index, 0, nullptr), 0);
    EXPECT_EQ(request(kGetEnabled, 0x0001), 1);
    EXPECT_EQ(request(kDescribe, 0x0001), 1);
}

}  // namespace
