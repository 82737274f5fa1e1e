// Base64 (RFC 4648, with padding): how Ardour keeps a plug-in's chunk in the
// session file.
#pragma once

#include <string>
#include <vector>

std::string encodeBase64(const std::vector<unsigned char>& bytes);
// Skips characters outside the alphabet (line breaks); stops at padding.
std::vector<unsigned char> decodeBase64(const std::string& text);
