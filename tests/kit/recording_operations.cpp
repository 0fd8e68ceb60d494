// SPDX-License-Identifier: MIT
// Every operation of the interfaces, by the name that journals and tests use.
#include "tests/kit/recording_library.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <iterator>

namespace recording {

namespace {

constexpr Kind kindOf(std::string_view name, std::string_view result)
{
    if (name.starts_with("get") || name.starts_with("is")) {
        return Kind::Read;
    }
    return result == "Flag" ? Kind::Flagged : Kind::Command;
}

constexpr Operation operations[] = {
    {"OmbrixSdk.get_instance", Kind::Read},
#define ROOT(Result, name, arguments) {"sdk." #name, kindOf(#name, #Result)},
#define CONFIGURATION(Result, name, arguments) {"config." #name, kindOf(#name, #Result)},
#define LINK(Result, name, arguments) {"link." #name, kindOf(#name, #Result)},
#define CAMERA(Result, name, arguments) {"camera." #name, kindOf(#name, #Result)},
#include "sdk/operations.def"
};

} // namespace

const Operation& operationNamed(std::string_view name)
{
    const auto found =
        std::find_if(std::begin(operations), std::end(operations),
                     [&](const Operation& operation) { return operation.name == name; });
    if (found == std::end(operations)) {
        std::fprintf(stderr, "recording SDK: unknown operation \"%s\"\n",
                     std::string(name).c_str());
        std::abort();
    }
    return *found;
}

} // namespace recording
