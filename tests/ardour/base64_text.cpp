#include "tests/ardour/base64_text.h"

#include <cstdint>

namespace {

constexpr char kAlphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

int digitValue(char c) {
    if (c >= 'A' && c <= 'Z') return c - 'A';
    if (c >= 'a' && c <= 'z') return c - 'a' + 26;
    if (c >= '0' && c <= '9') return c - '0' + 52;
    if (c == '+') return 62;
    if (c == '/') return 63;
    return -1;
}

}  // namespace

std::string encodeBase64(const std::vector<unsigned char>& bytes) {
    std::string text;
    for (size_t i = 0; i < bytes.size(); i += 3) {
        size_t left = bytes.size() - i;
        uint32_t group = static_cast<uint32_t>(bytes[i]) << 16;
        if (left > 1) group |= static_cast<uint32_t>(bytes[i + 1]) << 8;
        if (left > 2) group |= bytes[i + 2];
        for (size_t digit = 0; digit < 4; ++digit)
            text += digit <= left ? kAlphabet[(group >> (18 - 6 * digit)) & 63] : '=';
    }
    return text;
}

std::vector<unsigned char> decodeBase64(const std::string& text) {
    std::vector<unsigned char> bytes;
    uint32_t bits = 0;
    int bitCount = 0;
    for (char c : text) {
        if (c == '=') break;
        int value = digitValue(c);
        if (value < 0) continue;
        bits = (bits << 6) | static_cast<uint32_t>(value);
        bitCount += 6;
        if (bitCount >= 8) {
            bitCount -= 8;
            bytes.push_back(static_cast<unsigned char>((bits >> bitCount) & 0xFF));
        }
    }
    return bytes;
}
