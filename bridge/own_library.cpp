#include "bridge/own_library.h"

#include <dlfcn.h>

#include <climits>
#include <cstdlib>

namespace bridge {
namespace {

// Any function of this object serves to find the object.
void anchor() {}

std::string ownPath() {
    Dl_info info{};
    if (!dladdr(reinterpret_cast<void*>(&anchor), &info) || !info.dli_fname) return {};
    return info.dli_fname;
}

}  // namespace

std::string ownFolder() {
    std::string path = ownPath();
    if (path.empty()) return {};
    char resolved[PATH_MAX];
    if (realpath(path.c_str(), resolved)) path = resolved;
    size_t slash = path.rfind('/');
    return slash == std::string::npos ? std::string(".") : path.substr(0, slash);
}

bool promoteToGlobalScope() {
    std::string path = ownPath();
    if (path.empty()) return false;
    // The handle is kept for good: the object is never unloaded anyway.
    return dlopen(path.c_str(), RTLD_NOLOAD | RTLD_LAZY | RTLD_GLOBAL) != nullptr;
}

const void* objectBaseOf(const void* address) {
    Dl_info info{};
    if (!dladdr(address, &info)) return nullptr;
    return info.dli_fbase;
}

}  // namespace bridge
