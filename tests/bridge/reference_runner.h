// Runs the stand-in host's reference program (reference/stand_in_reference)
// and reads its answers.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

struct ParameterAnswer {
    std::string name;
    std::string label;
    std::string display;
    float value = 0.0f;
    bool operator==(const ParameterAnswer&) const = default;
};

struct ReferenceAnswers {
    std::vector<ParameterAnswer> parameters;
    std::vector<uint8_t> chunk;
};

struct ParameterValue {
    int32_t index;
    float value;
};

// The answers after loading `chunk` (when non-empty) and then setting `values`.
ReferenceAnswers standInAnswers(const std::vector<ParameterValue>& values,
                                const std::vector<uint8_t>& chunk = {});
