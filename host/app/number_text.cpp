#include "host/app/number_text.h"

#include <cerrno>
#include <cmath>
#include <cstdlib>

#include "host/app/program_error.h"

double parseNumber(const std::string& text, const std::string& what) {
    char* end = nullptr;
    errno = 0;
    double number = std::strtod(text.c_str(), &end);
    if (text.empty() || *end != '\0' || errno == ERANGE || !std::isfinite(number))
        throw UsageError(what + " is not a number: '" + text + "'");
    return number;
}

double parseFrequency(const std::string& text, const std::string& what) {
    bool kilo = !text.empty() && (text.back() == 'k' || text.back() == 'K');
    if (!kilo) return parseNumber(text, what);
    try {
        return 1000.0 * parseNumber(text.substr(0, text.size() - 1), what);
    } catch (const UsageError&) {
        throw UsageError(what + " is not a number: '" + text + "'");
    }
}

long long parseInteger(const std::string& text, const std::string& what) {
    char* end = nullptr;
    errno = 0;
    long long number = std::strtoll(text.c_str(), &end, 0);
    if (text.empty() || *end != '\0' || errno == ERANGE)
        throw UsageError(what + " is not an integer: '" + text + "'");
    return number;
}
