// SPDX-License-Identifier: MIT
#include "tests/kit/recording_library.h"

#include "tests/kit/recording_camera.h"
#include "tests/kit/recording_configuration.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <sstream>

namespace recording {

namespace {

/// Where an object that comes back is kept; null when it was never given out or is freed.
template<typename Object>
std::unique_ptr<Object>* keeperOf(std::deque<std::unique_ptr<Object>>& all, const void* object)
{
    const auto found = std::find_if(all.begin(), all.end(),
                                    [&](const auto& kept) { return kept.get() == object; });
    return object == nullptr || found == all.end() ? nullptr : &*found;
}

template<typename Object>
std::string nameOf(const char* kind, const void* object, const std::unique_ptr<Object>* keeper)
{
    if (keeper != nullptr) {
        return std::string(kind) + " " + std::to_string((*keeper)->number);
    }
    return object == nullptr ? "null" : "stranger";
}

} // namespace

std::string textOf(bool value)
{
    return value ? "true" : "false";
}

std::string textOf(const char* value)
{
    return value;
}

std::string textOf(const std::string& value)
{
    return "\"" + value + "\"";
}

std::string textOf(const ombrix_sdk::Zoom& value)
{
    return textOf(value.factor) + ", " + textOf(value.xCenter) + ", " + textOf(value.yCenter) +
           ", " + textOf(value.method);
}

std::vector<std::uint8_t> tableOf(const std::vector<std::uint64_t>& indexes)
{
    constexpr std::size_t regionLength = 8192;
    constexpr int indexShift = 43;
    std::vector<std::uint8_t> region(regionLength, 0);
    std::size_t offset = 0;
    for (const std::uint64_t index : indexes) {
        std::uint64_t word = index << indexShift;
        for (int byte = 0; byte < 8; ++byte, word >>= 8) {
            region.at(offset++) = static_cast<std::uint8_t>(word & 0xFF);
        }
    }
    return region;
}

class Link final : public ombrix_sdk::ISerialLink {
public:
    explicit Link(int objectNumber) : number(objectNumber) {}
    const int number; ///< counted from 1 in the order of creation

    ombrix_sdk::ICamera* openCamera(const char* portName) override
    {
        auto& library = Library::instance();
        library.enter("link.openCamera", number, std::string(portName));
        if (library.answerOr("link.openCamera", 1) == 0) {
            return nullptr;
        }
        const int cameraNumber = static_cast<int>(library.cameras.size()) + 1;
        return library.cameras.emplace_back(std::make_unique<Camera>(cameraNumber)).get();
    }

    void closeCamera(ombrix_sdk::ICamera* camera) override
    {
        auto& library = Library::instance();
        auto* const keeper = keeperOf(library.cameras, camera);
        library.enter("link.closeCamera", number, nameOf("camera", camera, keeper).c_str());
        if (keeper != nullptr && library.door.freesWhatIsClosed) {
            keeper->reset();
        }
    }
};

class Root final : public ombrix_sdk::IOmbrixSdk {
public:
    void initialize() override { Library::instance().enter("sdk.initialize", 0); }

    ombrix_sdk::ISdkConfiguration* getConfiguration() override
    {
        auto& library = Library::instance();
        library.enter("sdk.getConfiguration", 0);
        return library.configuration.get();
    }

    void saveConfiguration() override { Library::instance().enter("sdk.saveConfiguration", 0); }

    ombrix_sdk::ISerialLink* createSerialLink() override
    {
        auto& library = Library::instance();
        library.enter("sdk.createSerialLink", 0);
        const int linkNumber = static_cast<int>(library.links.size()) + 1;
        return library.links.emplace_back(std::make_unique<Link>(linkNumber)).get();
    }

    void releaseSerialLink(ombrix_sdk::ISerialLink** link) override
    {
        auto& library = Library::instance();
        auto* const keeper = keeperOf(library.links, *link);
        library.enter("sdk.releaseSerialLink", 0, nameOf("link", *link, keeper).c_str());
        if (keeper != nullptr && library.door.freesWhatIsClosed) {
            keeper->reset();
        }
        if (library.door.releaseClearsLink) {
            *link = nullptr;
        }
    }
};

std::string Entry::text() const
{
    if (operation == "log") {
        return "log " + std::to_string(object) + ": " + arguments;
    }
    return operation + "(" + arguments + ")";
}

Library::Library(Sdk& controlDoor) : door(controlDoor)
{
    reset();
    if (const char* const path = std::getenv("TAVREL_RECORDING_JOURNAL")) {
        if (std::string_view(path) == "-") {
            journal = &std::cout;
        } else {
            journalFile.open(path, std::ios::app);
            journal = &journalFile;
        }
    }
    if (const char* const path = std::getenv("TAVREL_RECORDING_SCRIPT")) {
        readScript(path);
    }
}

Library::~Library() = default;

void Library::reset()
{
    root = std::make_unique<Root>();
    configuration = std::make_unique<Configuration>();
    links.clear();
    cameras.clear();
    entries.clear();
    records.clear();
    programmes.clear();
    everyFlag.reset();
    recordAction = nullptr;
    entryAction = nullptr;
}

void Library::addEntry(Entry entry)
{
    if (const auto action = entryAction) {
        action(entry);
    }
    entries.push_back(std::move(entry));
    if (journal != nullptr) {
        *journal << entries.back().text() << std::endl;
    }
}

void Library::enterCall(std::string_view operation, int object, std::string arguments)
{
    operationNamed(operation);
    addEntry({std::string(operation), std::move(arguments), object});
    auto& programme = programmes[std::string(operation)];
    ++programme.called;
    if (const auto action = programme.action) {
        action();
    }
}

std::optional<double> Library::answerFor(std::string_view operation) const
{
    const auto found = programmes.find(operation);
    if (found != programmes.end()) {
        const Programme& programme = found->second;
        const auto once = programme.byCall.find(programme.called);
        if (once != programme.byCall.end()) {
            return once->second;
        }
        if (programme.always) {
            return programme.always;
        }
    }
    if (everyFlag && operationNamed(operation).kind == Kind::Flagged) {
        return everyFlag;
    }
    return std::nullopt;
}

bool Library::outputWithheld(std::string_view operation) const
{
    const auto found = programmes.find(operation);
    return found != programmes.end() && found->second.withhold;
}

void Library::writeRecord(LogRecord record)
{
    addEntry({"log", record.text, record.severity});
    records.push_back(std::move(record));
    if (const auto action = recordAction) {
        action();
    }
}

void Library::readScript(const char* path)
{
    std::ifstream script(path);
    for (std::string line; std::getline(script, line);) {
        if (!line.empty() && line.front() != '#') {
            applyScriptLine(line);
        }
    }
}

void Library::applyScriptLine(const std::string& line)
{
    static const std::map<std::string, std::int32_t ombrix_sdk::ISdkConfiguration::*> members = {
        {"config.gskValue", &ombrix_sdk::ISdkConfiguration::gskValue},
        {"config.gmsValue", &ombrix_sdk::ISdkConfiguration::gmsValue},
        {"config.gfidValue", &ombrix_sdk::ISdkConfiguration::gfidValue},
        {"config.tintValue", &ombrix_sdk::ISdkConfiguration::tintValue},
        {"config.gskMin", &ombrix_sdk::ISdkConfiguration::gskMin},
        {"config.gskMax", &ombrix_sdk::ISdkConfiguration::gskMax},
        {"config.gfidMin", &ombrix_sdk::ISdkConfiguration::gfidMin},
        {"config.gfidMax", &ombrix_sdk::ISdkConfiguration::gfidMax},
        {"config.tintMin", &ombrix_sdk::ISdkConfiguration::tintMin},
        {"config.tintMax", &ombrix_sdk::ISdkConfiguration::tintMax},
        {"config.gmsMin", &ombrix_sdk::ISdkConfiguration::gmsMin},
        {"config.gmsMax", &ombrix_sdk::ISdkConfiguration::gmsMax},
    };
    const auto blank = line.find(' ');
    const std::string value = blank == std::string::npos ? "" : line.substr(blank + 1);
    std::string name = line.substr(0, blank);
    if (name == "config.getCommunicationType") {
        door.configuration.communicationType = value;
        return;
    }
    if (const auto member = members.find(name); member != members.end()) {
        (*configuration).*(member->second) = std::stoi(value);
        return;
    }
    const auto hash = name.find('#');
    const int call = hash == std::string::npos ? 0 : std::stoi(name.substr(hash + 1));
    name = name.substr(0, hash);
    operationNamed(name);
    auto& programme = programmes[name];
    if (call == 0) {
        programme.always = std::stod(value);
    } else {
        programme.byCall[call] = std::stod(value);
    }
}

Sdk::Sdk() : library(std::make_unique<Library>(*this)) {}

Sdk::~Sdk() = default;

Sdk& Sdk::instance()
{
    static Sdk door;
    return door;
}

void Sdk::reset()
{
    camera = {};
    configuration = {};
    releaseClearsLink = true;
    freesWhatIsClosed = true;
    library->reset();
}

ombrix_sdk::ISdkConfiguration& Sdk::configurationObject()
{
    return *library->configuration;
}

void Sdk::answer(std::string_view operation, double value)
{
    operationNamed(operation);
    library->programmes[std::string(operation)].always = value;
}

void Sdk::answerCall(std::string_view operation, int call, double value)
{
    operationNamed(operation);
    auto& programme = library->programmes[std::string(operation)];
    programme.byCall[programme.called + call] = value;
}

void Sdk::answerEveryCommand(std::uint8_t value)
{
    library->everyFlag = value;
}

void Sdk::answerNormally(std::string_view operation)
{
    operationNamed(operation);
    auto& programme = library->programmes[std::string(operation)];
    programme.always.reset();
    programme.byCall.clear();
    programme.withhold = false;
}

void Sdk::withholdOutput(std::string_view operation)
{
    operationNamed(operation);
    library->programmes[std::string(operation)].withhold = true;
}

void Sdk::whenCalled(std::string_view operation, std::function<void()> action)
{
    operationNamed(operation);
    library->programmes[std::string(operation)].action = std::move(action);
}

void Sdk::whenLogged(std::function<void()> action)
{
    library->recordAction = std::move(action);
}

void Sdk::whenNoted(std::function<void(const Entry&)> action)
{
    library->entryAction = std::move(action);
}

std::vector<std::string> Sdk::calls(Show show) const
{
    std::vector<std::string> texts;
    for (const Entry& entry : library->entries) {
        if (entry.operation == "log") {
            continue;
        }
        if (show == Show::Everything || operationNamed(entry.operation).kind != Kind::Read) {
            texts.push_back(entry.text());
        }
    }
    return texts;
}

int Sdk::count(std::string_view operation) const
{
    operationNamed(operation);
    return static_cast<int>(
        std::count_if(library->entries.begin(), library->entries.end(),
                      [&](const Entry& entry) { return entry.operation == operation; }));
}

const std::vector<Entry>& Sdk::entries() const
{
    return library->entries;
}

const std::vector<LogRecord>& Sdk::records() const
{
    return library->records;
}

void Sdk::clearJournal()
{
    library->entries.clear();
    library->records.clear();
}

/// The writer of one open log record.
class Writer final : public ombrix_sdk::ILogger {
public:
    explicit Writer(int severity) : record{severity, {}, {}} {}

    ombrix_sdk::ILogger& operator<<(const std::string& text) override
    {
        return insert("string: ", text);
    }
    ombrix_sdk::ILogger& operator<<(const char* text) override
    {
        return insert("characters: ", text);
    }

    LogRecord record;

private:
    ombrix_sdk::ILogger& insert(const char* kind, const std::string& text)
    {
        record.text += text;
        record.pieces.push_back(kind + text);
        return *this;
    }
};

} // namespace recording

namespace ombrix_sdk {

IOmbrixSdk* OmbrixSdk::get_instance()
{
    auto& library = recording::Library::instance();
    library.enter("OmbrixSdk.get_instance", 0);
    return library.root.get();
}

SDKLogger::SDKLogger(severity_level severity) : record(new recording::Writer(severity)) {}

SDKLogger::~SDKLogger()
{
    auto* const writer = static_cast<recording::Writer*>(record);
    recording::Library::instance().writeRecord(std::move(writer->record));
    delete writer;
}

ILogger& SDKLogger::GetILogger()
{
    return *static_cast<recording::Writer*>(record);
}

} // namespace ombrix_sdk
