// SPDX-License-Identifier: MIT
// The entry points that the library exports.
#include "sdk/ombrix_sdk.h"

#include "simulator/simulator.h"

#include <QtCore/QByteArray>

#include <mutex>

namespace {

class Record final : public ombrix_sdk::ILogger {
public:
    explicit Record(ombrix_sdk::severity_level level) : severity(level) {}

    ILogger& operator<<(const std::string& piece) override
    {
        text.append(piece.data(), static_cast<int>(piece.size()));
        return *this;
    }

    ILogger& operator<<(const char* piece) override
    {
        if (piece == nullptr) {
            const std::lock_guard entry(simulator::Simulator::instance().gate());
            simulator::Simulator::instance().log().misuse(
                QStringLiteral("a log record is given a null pointer"));
        } else {
            text.append(piece);
        }
        return *this;
    }

    void emitRecord() const
    {
        const std::lock_guard entry(simulator::Simulator::instance().gate());
        simulator::Simulator::instance().log().record(severity, text);
    }

private:
    ombrix_sdk::severity_level severity;
    QByteArray text;
};

} // namespace

namespace ombrix_sdk {

IOmbrixSdk* OmbrixSdk::get_instance()
{
    return &simulator::Simulator::instance().root();
}

SDKLogger::SDKLogger(severity_level severity) : record(new Record(severity)) {}

SDKLogger::~SDKLogger()
{
    const auto* const finished = static_cast<Record*>(record);
    finished->emitRecord();
    delete finished;
}

ILogger& SDKLogger::GetILogger()
{
    return *static_cast<Record*>(record);
}

} // namespace ombrix_sdk
