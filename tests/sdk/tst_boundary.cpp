// SPDX-License-Identifier: MIT
// The contract with the SDK library, operation by operation: which slot of its virtual table each
// one takes and with which types, where the data lies. The numbers stand here a second time on
// purpose; the header must give exactly them.
#include "sdk/ombrix_sdk.h"

#include "tests/kit/operator.h"

#include <array>
#include <cstddef>
#include <type_traits>

using namespace ombrix_sdk;

namespace {

// ---- layouts, settled by the compiler

static_assert(sizeof(Flag) == 1 && std::is_unsigned_v<Flag>);
static_assert(std::is_same_v<std::underlying_type_t<severity_level>, int>);
static_assert(startup_severity == 0 && event_severity == 2);

static_assert(sizeof(Temperatures) == 8);
static_assert(offsetof(Temperatures, sensor) == 0 && offsetof(Temperatures, fpga) == 4);
static_assert(std::is_same_v<decltype(Temperatures::sensor), float>);

static_assert(sizeof(OperatingTime) == 8);
static_assert(offsetof(OperatingTime, minutes) == 0 && offsetof(OperatingTime, startups) == 4);

static_assert(sizeof(EdgeCorrection) == 16 && sizeof(EdgeCorrection::type) == 1);
static_assert(offsetof(EdgeCorrection, type) == 0 && offsetof(EdgeCorrection, gain) == 4);
static_assert(offsetof(EdgeCorrection, firstThreshold) == 8);
static_assert(offsetof(EdgeCorrection, secondThreshold) == 12);

static_assert(sizeof(Zoom) == 16 && sizeof(Zoom::method) == 1);
static_assert(offsetof(Zoom, factor) == 0 && offsetof(Zoom, xCenter) == 4);
static_assert(offsetof(Zoom, yCenter) == 8 && offsetof(Zoom, method) == 12);
static_assert(std::is_same_v<decltype(Zoom::factor), float>);
static_assert(std::is_same_v<decltype(Zoom::xCenter), std::int32_t>);

static_assert(sizeof(ZoomResolution) == 8);
static_assert(offsetof(ZoomResolution, x) == 0 && offsetof(ZoomResolution, y) == 4);
static_assert(std::is_same_v<decltype(ZoomResolution::x), std::uint32_t>);

static_assert(sizeof(AhcGainsLimitation) == 2);
static_assert(offsetof(AhcGainsLimitation, black) == 0);
static_assert(offsetof(AhcGainsLimitation, white) == 1);

static_assert(sizeof(ReplacementEntry) == 8);

// A record has room for an object of the library, no virtual table, and is never copied.
static_assert(sizeof(SDKLogger) == 256 && alignof(SDKLogger) == 16);
static_assert(!std::is_polymorphic_v<SDKLogger>);
static_assert(!std::is_copy_constructible_v<SDKLogger>);
static_assert(std::is_constructible_v<SDKLogger, severity_level>);
static_assert(std::is_same_v<decltype(&OmbrixSdk::get_instance), IOmbrixSdk* (*)()>);
static_assert(std::is_same_v<decltype(&SDKLogger::GetILogger), ILogger& (SDKLogger::*)()>);

// Nobody outside the library destroys its objects, and no slot is spent on a destructor.
template<typename Interface>
constexpr bool isOwnedByTheLibrary =
    std::is_abstract_v<Interface> && !std::has_virtual_destructor_v<Interface> &&
    !std::is_destructible_v<Interface> && !std::is_copy_constructible_v<Interface>;
static_assert(isOwnedByTheLibrary<IOmbrixSdk>);
static_assert(isOwnedByTheLibrary<ISdkConfiguration>);
static_assert(isOwnedByTheLibrary<ISerialLink>);
static_assert(isOwnedByTheLibrary<ICamera>);
static_assert(isOwnedByTheLibrary<ILogger>);

// ---- slots

/// The function by a way that the compiler cannot look along: it would take the objects below for
/// ones whose tables it knows.
template<typename Function> Function unseen(Function function)
{
    Function volatile hidden = function;
    return hidden;
}

template<typename Interface, typename Result, typename... Arguments>
Result call(Interface& object, Result (Interface::*operation)(Arguments...),
            std::type_identity_t<Arguments>... arguments)
{
    return (object.*operation)(arguments...);
}

/// The library's side of the contract: an object that is nothing but a table pointer.
template<typename Function> struct BareObject {
    const Function* table;

    template<typename Interface> Interface& as() { return reinterpret_cast<Interface&>(*this); }
};

template<typename Result> Result noResult()
{
    if constexpr (std::is_reference_v<Result>) {
        static void* nobody = nullptr;
        return reinterpret_cast<Result>(nobody);
    } else {
        return Result();
    }
}

template<typename Argument> Argument someArgument()
{
    static std::remove_cvref_t<Argument> value{};
    return value;
}

/// The slot that a call of the operation goes through: the place in the table where the function
/// has to stand that is called. Pointers to member functions do not tell it under every ABI. The
/// signature is given, so that a changed type does not compile.
template<typename Interface, typename Result, typename... Arguments>
int slotReachedBy(Result (Interface::*operation)(Arguments...))
{
    using Function = Result (*)(const void*, Arguments...);
    static bool reached;
    const Function sought = [](const void*, Arguments...) -> Result {
        reached = true;
        return noResult<Result>();
    };
    const Function other = [](const void*, Arguments...) -> Result {
        return noResult<Result>();
    };
    std::array<Function, 128> table{};
    BareObject<Function> object{table.data()};
    for (std::size_t slot = 0; slot < table.size(); ++slot) {
        table.fill(other);
        table.at(slot) = sought;
        reached = false;
        unseen (&call<Interface, Result, Arguments...>)(object.template as<Interface>(), operation,
                                                        someArgument<Arguments>()...);
        if (reached) {
            return static_cast<int>(slot);
        }
    }
    return -1;
}

template<typename Signature, typename Interface> int slotOf(Signature Interface::*operation)
{
    return slotReachedBy(operation);
}

struct Slot {
    const char* operation;
    int expected;
    int actual;
};

// clang-format off
const Slot rootSlots[] = {
    {"initialize", 1, slotOf<void()>(&IOmbrixSdk::initialize)},
    {"getConfiguration", 5, slotOf<ISdkConfiguration*()>(&IOmbrixSdk::getConfiguration)},
    {"saveConfiguration", 6, slotOf<void()>(&IOmbrixSdk::saveConfiguration)},
    {"createSerialLink", 9, slotOf<ISerialLink*()>(&IOmbrixSdk::createSerialLink)},
    {"releaseSerialLink", 11, slotOf<void(ISerialLink**)>(&IOmbrixSdk::releaseSerialLink)},
};

const Slot configurationSlots[] = {
    {"getDefaultBaudRate", 7, slotOf<std::int32_t()>(&ISdkConfiguration::getDefaultBaudRate)},
    {"getCommunicationType", 13, slotOf<const char*()>(&ISdkConfiguration::getCommunicationType)},
    {"getDefaultRoi0IncX1", 25, slotOf<double()>(&ISdkConfiguration::getDefaultRoi0IncX1)},
    {"getDefaultRoi0IncY1", 26, slotOf<double()>(&ISdkConfiguration::getDefaultRoi0IncY1)},
    {"getDefaultRoi0IncX2", 27, slotOf<double()>(&ISdkConfiguration::getDefaultRoi0IncX2)},
    {"getDefaultRoi0IncY2", 28, slotOf<double()>(&ISdkConfiguration::getDefaultRoi0IncY2)},
    {"getDefaultContrastType", 29, slotOf<std::uint8_t()>(&ISdkConfiguration::getDefaultContrastType)},
    {"getDefaultColorLut", 30, slotOf<std::uint8_t()>(&ISdkConfiguration::getDefaultColorLut)},
    {"getDefaultPolarity", 31, slotOf<std::uint8_t()>(&ISdkConfiguration::getDefaultPolarity)},
    {"getDefaultZoomFactor", 32, slotOf<float()>(&ISdkConfiguration::getDefaultZoomFactor)},
    {"getDefaultZoomMethod", 33, slotOf<std::uint8_t()>(&ISdkConfiguration::getDefaultZoomMethod)},
    {"getDefaultZoomXCenter", 34, slotOf<std::int32_t()>(&ISdkConfiguration::getDefaultZoomXCenter)},
    {"getDefaultZoomYCenter", 35, slotOf<std::int32_t()>(&ISdkConfiguration::getDefaultZoomYCenter)},
    {"getDefaultZoomXResolution", 36, slotOf<std::int32_t()>(&ISdkConfiguration::getDefaultZoomXResolution)},
    {"getDefaultZoomYResolution", 37, slotOf<std::int32_t()>(&ISdkConfiguration::getDefaultZoomYResolution)},
    {"getDefaultHorizontalFlip", 38, slotOf<Flag()>(&ISdkConfiguration::getDefaultHorizontalFlip)},
    {"getDefaultVerticalFlip", 39, slotOf<Flag()>(&ISdkConfiguration::getDefaultVerticalFlip)},
    {"getDefaultVignettingCorrection", 40, slotOf<Flag()>(&ISdkConfiguration::getDefaultVignettingCorrection)},
    {"getDefaultColumnCorrection", 41, slotOf<Flag()>(&ISdkConfiguration::getDefaultColumnCorrection)},
    {"getDefaultFrameRate", 42, slotOf<std::uint8_t()>(&ISdkConfiguration::getDefaultFrameRate)},
    {"getDefaultEdgeCorrection", 43, slotOf<std::uint8_t()>(&ISdkConfiguration::getDefaultEdgeCorrection)},
    {"getDefaultSharpeningGain", 44, slotOf<std::uint32_t()>(&ISdkConfiguration::getDefaultSharpeningGain)},
    {"getDefaultSharpeningThreshold", 45, slotOf<std::uint32_t()>(&ISdkConfiguration::getDefaultSharpeningThreshold)},
    {"getDefaultVideoOutput", 47, slotOf<std::uint8_t()>(&ISdkConfiguration::getDefaultVideoOutput)},
    {"getDefaultBt656SdiOutput", 48, slotOf<Flag()>(&ISdkConfiguration::getDefaultBt656SdiOutput)},
    {"getDefaultParallelOutput", 49, slotOf<Flag()>(&ISdkConfiguration::getDefaultParallelOutput)},
    {"getDefaultMipiOutput", 50, slotOf<Flag()>(&ISdkConfiguration::getDefaultMipiOutput)},
    {"getDefaultTestPattern", 51, slotOf<Flag()>(&ISdkConfiguration::getDefaultTestPattern)},
    {"getDefaultRoi0ExcEnable", 52, slotOf<Flag()>(&ISdkConfiguration::getDefaultRoi0ExcEnable)},
    {"getDefaultRoi0ExcX1", 53, slotOf<double()>(&ISdkConfiguration::getDefaultRoi0ExcX1)},
    {"getDefaultRoi0ExcY1", 54, slotOf<double()>(&ISdkConfiguration::getDefaultRoi0ExcY1)},
    {"getDefaultRoi0ExcX2", 55, slotOf<double()>(&ISdkConfiguration::getDefaultRoi0ExcX2)},
    {"getDefaultRoi0ExcY2", 56, slotOf<double()>(&ISdkConfiguration::getDefaultRoi0ExcY2)},
    {"getDefaultRoi1IncEnable", 57, slotOf<Flag()>(&ISdkConfiguration::getDefaultRoi1IncEnable)},
    {"getDefaultRoi1IncX1", 58, slotOf<double()>(&ISdkConfiguration::getDefaultRoi1IncX1)},
    {"getDefaultRoi1IncY1", 59, slotOf<double()>(&ISdkConfiguration::getDefaultRoi1IncY1)},
    {"getDefaultRoi1IncX2", 60, slotOf<double()>(&ISdkConfiguration::getDefaultRoi1IncX2)},
    {"getDefaultRoi1IncY2", 61, slotOf<double()>(&ISdkConfiguration::getDefaultRoi1IncY2)},
    {"getDefaultRoi1ExcEnable", 62, slotOf<Flag()>(&ISdkConfiguration::getDefaultRoi1ExcEnable)},
    {"getDefaultRoi1ExcX1", 63, slotOf<double()>(&ISdkConfiguration::getDefaultRoi1ExcX1)},
    {"getDefaultRoi1ExcY1", 64, slotOf<double()>(&ISdkConfiguration::getDefaultRoi1ExcY1)},
    {"getDefaultRoi1ExcX2", 65, slotOf<double()>(&ISdkConfiguration::getDefaultRoi1ExcX2)},
    {"getDefaultRoi1ExcY2", 66, slotOf<double()>(&ISdkConfiguration::getDefaultRoi1ExcY2)},
    {"getDefaultTemporalFilter", 67, slotOf<std::uint8_t()>(&ISdkConfiguration::getDefaultTemporalFilter)},
    {"getDefaultAhcBlackGainLimit", 68, slotOf<std::uint8_t()>(&ISdkConfiguration::getDefaultAhcBlackGainLimit)},
    {"getDefaultAhcWhiteGainLimit", 69, slotOf<std::uint8_t()>(&ISdkConfiguration::getDefaultAhcWhiteGainLimit)},
    {"isExpertModeEnabled", 70, slotOf<Flag()>(&ISdkConfiguration::isExpertModeEnabled)},
    {"setBaudRate", 71, slotOf<void(std::int32_t)>(&ISdkConfiguration::setBaudRate)},
};

const Slot linkSlots[] = {
    {"openCamera", 15, slotOf<ICamera*(const char*)>(&ISerialLink::openCamera)},
    {"closeCamera", 16, slotOf<void(ICamera*)>(&ISerialLink::closeCamera)},
};

const Slot cameraSlots[] = {
    {"getVersions", 2, slotOf<void(std::uint32_t*)>(&ICamera::getVersions)},
    {"refresh", 3, slotOf<void()>(&ICamera::refresh)},
    {"getRoiX1", 4, slotOf<std::uint32_t(std::uint32_t)>(&ICamera::getRoiX1)},
    {"getRoiX2", 5, slotOf<std::uint32_t(std::uint32_t)>(&ICamera::getRoiX2)},
    {"getRoiY1", 6, slotOf<std::uint32_t(std::uint32_t)>(&ICamera::getRoiY1)},
    {"getRoiY2", 7, slotOf<std::uint32_t(std::uint32_t)>(&ICamera::getRoiY2)},
    {"getSerialNumber", 8, slotOf<std::uint32_t()>(&ICamera::getSerialNumber)},
    {"getSensorSerialNumber", 9, slotOf<std::uint32_t()>(&ICamera::getSensorSerialNumber)},
    {"getTemperatures", 11, slotOf<Flag(Temperatures*)>(&ICamera::getTemperatures)},
    {"getOperatingTime", 12, slotOf<Flag(OperatingTime*)>(&ICamera::getOperatingTime)},
    {"getGsk", 15, slotOf<std::uint32_t()>(&ICamera::getGsk)},
    {"setGsk", 16, slotOf<Flag(std::uint32_t)>(&ICamera::setGsk)},
    {"setGfid", 17, slotOf<Flag(std::uint32_t)>(&ICamera::setGfid)},
    {"setGms", 18, slotOf<Flag(std::uint32_t)>(&ICamera::setGms)},
    {"getGfid", 19, slotOf<std::uint32_t()>(&ICamera::getGfid)},
    {"getGms", 20, slotOf<std::uint32_t()>(&ICamera::getGms)},
    {"getTint", 21, slotOf<std::uint32_t()>(&ICamera::getTint)},
    {"setTint", 22, slotOf<Flag(std::uint32_t)>(&ICamera::setTint)},
    {"getBprCorrection", 23, slotOf<Flag()>(&ICamera::getBprCorrection)},
    {"setBprCorrection", 24, slotOf<Flag(bool)>(&ICamera::setBprCorrection)},
    {"getOffsetCorrection", 25, slotOf<Flag()>(&ICamera::getOffsetCorrection)},
    {"setOffsetCorrection", 26, slotOf<Flag(bool)>(&ICamera::setOffsetCorrection)},
    {"getGainCorrection", 27, slotOf<Flag()>(&ICamera::getGainCorrection)},
    {"setGainCorrection", 28, slotOf<Flag(bool)>(&ICamera::setGainCorrection)},
    {"getHorizontalFlip", 29, slotOf<Flag()>(&ICamera::getHorizontalFlip)},
    {"setHorizontalFlip", 30, slotOf<Flag(bool)>(&ICamera::setHorizontalFlip)},
    {"getVerticalFlip", 31, slotOf<Flag()>(&ICamera::getVerticalFlip)},
    {"setVerticalFlip", 32, slotOf<Flag(bool)>(&ICamera::setVerticalFlip)},
    {"getVignettingCorrection", 33, slotOf<Flag()>(&ICamera::getVignettingCorrection)},
    {"setVignettingCorrection", 34, slotOf<Flag(bool)>(&ICamera::setVignettingCorrection)},
    {"getColumnCorrection", 35, slotOf<Flag()>(&ICamera::getColumnCorrection)},
    {"setColumnCorrection", 36, slotOf<Flag(bool)>(&ICamera::setColumnCorrection)},
    {"setTestPattern", 37, slotOf<Flag(bool)>(&ICamera::setTestPattern)},
    {"getTestPattern", 38, slotOf<Flag()>(&ICamera::getTestPattern)},
    {"setBt656SdiOutput", 39, slotOf<Flag(bool)>(&ICamera::setBt656SdiOutput)},
    {"getBt656SdiOutput", 40, slotOf<Flag()>(&ICamera::getBt656SdiOutput)},
    {"setParallelOutput", 41, slotOf<Flag(bool)>(&ICamera::setParallelOutput)},
    {"getParallelOutput", 42, slotOf<Flag()>(&ICamera::getParallelOutput)},
    {"setMipiOutput", 43, slotOf<Flag(bool)>(&ICamera::setMipiOutput)},
    {"getMipiOutput", 44, slotOf<Flag()>(&ICamera::getMipiOutput)},
    {"setFrameRate", 45, slotOf<Flag(std::uint8_t)>(&ICamera::setFrameRate)},
    {"getFrameRate", 46, slotOf<std::uint8_t()>(&ICamera::getFrameRate)},
    {"setVideoOutput", 47, slotOf<Flag(std::uint8_t)>(&ICamera::setVideoOutput)},
    {"getVideoOutput", 48, slotOf<std::uint8_t()>(&ICamera::getVideoOutput)},
    {"setBaudRate", 49, slotOf<Flag(std::uint32_t, bool)>(&ICamera::setBaudRate)},
    {"configureEdgeCorrection", 50, slotOf<Flag(std::uint8_t, std::uint32_t, std::uint32_t)>(&ICamera::configureEdgeCorrection)},
    {"getEdgeCorrection", 51, slotOf<const EdgeCorrection*(EdgeCorrection*)>(&ICamera::getEdgeCorrection)},
    {"configureZoom", 54, slotOf<Flag(const Zoom*)>(&ICamera::configureZoom)},
    {"getZoom", 55, slotOf<Flag(Zoom*)>(&ICamera::getZoom)},
    {"getZoomResolution", 56, slotOf<Flag(ZoomResolution*)>(&ICamera::getZoomResolution)},
    {"configureZoomResolution", 57, slotOf<Flag(std::uint32_t, std::uint32_t)>(&ICamera::configureZoomResolution)},
    {"getContrastType", 58, slotOf<std::uint8_t()>(&ICamera::getContrastType)},
    {"configureContrastType", 59, slotOf<Flag(std::uint8_t)>(&ICamera::configureContrastType)},
    {"setColorLut", 60, slotOf<Flag(std::uint8_t)>(&ICamera::setColorLut)},
    {"getColorLut", 61, slotOf<std::uint8_t()>(&ICamera::getColorLut)},
    {"getAhcGainsLimitation", 62, slotOf<Flag(AhcGainsLimitation*)>(&ICamera::getAhcGainsLimitation)},
    {"setAhcGainsLimitation", 63, slotOf<Flag(std::uint8_t, std::uint8_t)>(&ICamera::setAhcGainsLimitation)},
    {"getLutTemporalFilter", 64, slotOf<std::uint8_t()>(&ICamera::getLutTemporalFilter)},
    {"setLutTemporalFilter", 65, slotOf<Flag(std::uint8_t)>(&ICamera::setLutTemporalFilter)},
    {"connect", 67, slotOf<std::uint8_t(void*)>(&ICamera::connect)},
    {"readTableData", 69, slotOf<std::int32_t(std::uint32_t, std::uint32_t, std::uint8_t, void*)>(&ICamera::readTableData)},
    {"writeTableData", 70, slotOf<Flag(std::uint32_t, std::uint32_t, std::uint8_t, void*)>(&ICamera::writeTableData)},
    {"loadBadPixelList", 72, slotOf<void(const std::string&, std::vector<ReplacementEntry>&, int&, int&)>(&ICamera::loadBadPixelList)},
    {"addBadPixels", 73, slotOf<Flag(const std::string&, std::uint32_t, std::uint32_t)>(&ICamera::addBadPixels)},
    {"removeBadPixels", 74, slotOf<Flag(const std::string&, std::uint32_t, std::uint32_t)>(&ICamera::removeBadPixels)},
    {"getGamma", 76, slotOf<std::uint32_t()>(&ICamera::getGamma)},
    {"setGamma", 77, slotOf<Flag(std::uint32_t)>(&ICamera::setGamma)},
    {"getClhe", 78, slotOf<std::uint32_t()>(&ICamera::getClhe)},
    {"setClhe", 79, slotOf<Flag(std::uint32_t)>(&ICamera::setClhe)},
    {"getPolarity", 80, slotOf<Flag()>(&ICamera::getPolarity)},
    {"setPolarity", 81, slotOf<Flag(bool)>(&ICamera::setPolarity)},
    {"setRoiX1", 82, slotOf<Flag(std::uint32_t, std::uint32_t, bool, bool, bool)>(&ICamera::setRoiX1)},
    {"setRoiX2", 83, slotOf<Flag(std::uint32_t, std::uint32_t, bool, bool, bool)>(&ICamera::setRoiX2)},
    {"setRoiY1", 84, slotOf<Flag(std::uint32_t, std::uint32_t, bool, bool, bool)>(&ICamera::setRoiY1)},
    {"setRoiY2", 85, slotOf<Flag(std::uint32_t, std::uint32_t, bool, bool, bool)>(&ICamera::setRoiY2)},
    {"requestNuc", 86, slotOf<Flag(std::uint8_t)>(&ICamera::requestNuc)},
    {"setNucControl", 87, slotOf<Flag(std::uint8_t)>(&ICamera::setNucControl)},
    {"getNucControl", 88, slotOf<Flag()>(&ICamera::getNucControl)},
    {"setShutterPosition", 89, slotOf<Flag(bool)>(&ICamera::setShutterPosition)},
    {"getShutterPosition", 90, slotOf<Flag(std::uint8_t*)>(&ICamera::getShutterPosition)},
};

const Slot loggerSlots[] = {
    {"operator<< string", 1, slotOf<ILogger&(const std::string&)>(&ILogger::operator<<)},
    {"operator<< characters", 2, slotOf<ILogger&(const char*)>(&ILogger::operator<<)},
};
// clang-format on

constexpr const char* listedOperations[] = {
#define OPERATION(Interface, Result, name, arguments) #Interface " " #name,
#include "sdk/operations.def"
};

struct Member {
    const char* name;
    std::int32_t ISdkConfiguration::*member;
    int offset;
};

const Member configurationMembers[] = {
    {"gskValue", &ISdkConfiguration::gskValue, 24},
    {"gmsValue", &ISdkConfiguration::gmsValue, 28},
    {"gfidValue", &ISdkConfiguration::gfidValue, 32},
    {"tintValue", &ISdkConfiguration::tintValue, 36},
    {"gskMin", &ISdkConfiguration::gskMin, 60},
    {"gskMax", &ISdkConfiguration::gskMax, 64},
    {"gfidMin", &ISdkConfiguration::gfidMin, 68},
    {"gfidMax", &ISdkConfiguration::gfidMax, 72},
    {"tintMin", &ISdkConfiguration::tintMin, 76},
    {"tintMax", &ISdkConfiguration::tintMax, 80},
    {"gmsMin", &ISdkConfiguration::gmsMin, 84},
    {"gmsMax", &ISdkConfiguration::gmsMax, 88},
};

} // namespace

class TestBoundary : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyOperationHasItsSlot_data()
    {
        QTest::addColumn<int>("actual");
        QTest::addColumn<int>("expected");
        addSlots("IOmbrixSdk", rootSlots);
        addSlots("ISdkConfiguration", configurationSlots);
        addSlots("ISerialLink", linkSlots);
        addSlots("ICamera", cameraSlots);
        addSlots("ILogger", loggerSlots);
    }

    void everyOperationHasItsSlot()
    {
        QFETCH(int, actual);
        QFETCH(int, expected);
        QCOMPARE(actual, expected);
    }

    void theListOfOperationsIsTheBoundarys()
    {
        QStringList listed;
        for (const char* const operation : listedOperations) {
            listed << QLatin1String(operation);
        }
        QStringList pinned;
        append(pinned, "IOmbrixSdk", rootSlots);
        append(pinned, "ISdkConfiguration", configurationSlots);
        append(pinned, "ISerialLink", linkSlots);
        append(pinned, "ICamera", cameraSlots);
        QCOMPARE(missing(pinned, listed), QString());
        QCOMPARE(missing(listed, pinned), QString());
        QCOMPARE(listed.size(), pinned.size());
    }

    void everyDataMemberOfTheConfigurationHasItsPlace_data()
    {
        QTest::addColumn<int>("actual");
        QTest::addColumn<int>("expected");
        ISdkConfiguration& configuration = recording::Sdk::instance().configurationObject();
        const char* const start = reinterpret_cast<const char*>(&configuration);
        for (const Member& member : configurationMembers) {
            const char* const place =
                reinterpret_cast<const char*>(&(configuration.*member.member));
            QTest::newRow(member.name) << static_cast<int>(place - start) << member.offset;
        }
    }

    void everyDataMemberOfTheConfigurationHasItsPlace()
    {
        QFETCH(int, actual);
        QFETCH(int, expected);
        QCOMPARE(actual, expected);
    }

    void aCallGoesThroughTheTableByNumber()
    {
        using Operation = Flag (*)(const void*, bool);
        std::array<Operation, 128> table{};
        table.fill([](const void*, bool) { return Flag{0}; });
        constexpr std::size_t setPolaritySlot = 81;
        table.at(setPolaritySlot) = [](const void*, bool inverted) {
            return static_cast<Flag>(inverted ? 200 : 0);
        };
        BareObject<Operation> object{table.data()};
        const Flag result =
            unseen(&call<ICamera, Flag, bool>)(object.as<ICamera>(), &ICamera::setPolarity, true);
        QCOMPARE(static_cast<int>(result), 200);
    }

    void theLibraryIsOneObjectPerProcess()
    {
        IOmbrixSdk* const sdk = OmbrixSdk::get_instance();
        QCOMPARE(OmbrixSdk::get_instance(), sdk);
        QCOMPARE(sdk->getConfiguration(), sdk->getConfiguration());
    }

    void aRecordIsEmittedWhenItsWriterIsDestroyed()
    {
        auto& sdk = recording::Sdk::instance();
        sdk.reset();
        {
            SDKLogger record(event_severity);
            ILogger& writer = record.GetILogger();
            ILogger& chained = writer << std::string("Set GAMMA value ") << "OK";
            QCOMPARE(&chained, &writer);
            QVERIFY(sdk.records().empty());
        }
        QCOMPARE(sdk.records().size(), std::size_t{1});
        QCOMPARE(sdk.records().front().severity, 2);
        QCOMPARE(sdk.records().front().text, std::string("Set GAMMA value OK"));
        const std::vector<std::string> pieces = {"string: Set GAMMA value ", "characters: OK"};
        QVERIFY(sdk.records().front().pieces == pieces);
    }

private:
    /// What is in one list and not in the other.
    static QString missing(const QStringList& here, const QStringList& whole)
    {
        QStringList names;
        for (const QString& name : whole) {
            if (!here.contains(name)) {
                names << name;
            }
        }
        return names.join(QStringLiteral(", "));
    }

    template<std::size_t Count>
    static void append(QStringList& names, const char* interfaceName, const Slot (&rows)[Count])
    {
        for (const Slot& row : rows) {
            names << QStringLiteral("%1 %2").arg(QLatin1String(interfaceName),
                                                 QLatin1String(row.operation));
        }
    }

    template<std::size_t Count>
    static void addSlots(const char* interfaceName, const Slot (&rows)[Count])
    {
        for (const Slot& row : rows) {
            QTest::addRow("%s %s", interfaceName, row.operation) << row.actual << row.expected;
        }
    }
};

TAVREL_TEST_MAIN(TestBoundary)
#include "tst_boundary.moc"
