// SPDX-License-Identifier: MIT
// The camera of the recording SDK: a value store that writes down each call.
#pragma once

#include "tests/kit/recording_library.h"

namespace recording {

using namespace ombrix_sdk;

class Camera final : public ICamera {
public:
    explicit Camera(int objectNumber) : number(objectNumber) {}
    const int number; ///< counted from 1 in the order of opening

// clang-format off
#define GET(Type, name, value) Type name() override { return read("camera." #name, state().value); }
#define SET(Type, name, value)                                                                     \
    Flag name(Type given) override { return set("camera." #name, state().value, given); }
#define FILL(Record, name, value)                                                                  \
    Flag name(Record* record) override { return fill("camera." #name, record, state().value); }
#define GET_ROI(name, coordinate)                                                                  \
    std::uint32_t name(std::uint32_t region) override                                              \
    {                                                                                              \
        return readRegion("camera." #name, region, &Region::coordinate);                           \
    }
#define SET_ROI(name, coordinate)                                                                  \
    Flag name(std::uint32_t given, std::uint32_t region, bool roi1Inclusive, bool roi0Exclusive,   \
              bool roi1Exclusive) override                                                         \
    {                                                                                              \
        enter("camera." #name, given, region, roi1Inclusive, roi0Exclusive, roi1Exclusive);        \
        return writeRegion("camera." #name, region, &Region::coordinate, given);                   \
    }
#define CAMERA(Result, name, arguments) Result name arguments override;
// clang-format on
#include "sdk/operations.def"

private:
    static Library& library()
    {
        return Library::instance();
    }
    static CameraState& state()
    {
        return library().door.camera;
    }

    template<typename... Arguments>
    void enter(std::string_view operation, const Arguments&... arguments) const
    {
        library().enter(operation, number, arguments...);
    }

    template<typename Value> Value read(std::string_view operation, const Value& stored) const
    {
        enter(operation);
        return library().answerOr(operation, stored);
    }

    /// Answers a command; keeps what it carried when the answer is nonzero.
    template<typename Keep> static Flag keep(std::string_view operation, const Keep& store)
    {
        const auto result = library().answerOr(operation, Flag{1});
        if (result != 0) {
            store();
        }
        return result;
    }

    template<typename Stored, typename Value>
    Flag set(std::string_view operation, Stored& stored, Value value) const
    {
        enter(operation, value);
        return keep(operation, [&] { stored = static_cast<Stored>(value); });
    }

    template<typename Record>
    Flag fill(std::string_view operation, Record* record, const Record& stored) const
    {
        enter(operation);
        const auto result = library().answerOr(operation, Flag{1});
        if (result != 0 && !library().outputWithheld(operation)) {
            *record = stored;
        }
        return result;
    }

    std::uint32_t readRegion(std::string_view operation, std::uint32_t region,
                             std::uint32_t Region::*coordinate) const
    {
        enter(operation, region);
        const bool known = region < state().regions.size();
        return library().answerOr(operation, known ? state().regions[region].*coordinate : 0U);
    }

    static Flag writeRegion(std::string_view operation, std::uint32_t region,
                            std::uint32_t Region::*coordinate, std::uint32_t value)
    {
        return keep(operation, [&] {
            if (region < state().regions.size()) {
                state().regions[region].*coordinate = value;
            }
        });
    }
};

} // namespace recording
