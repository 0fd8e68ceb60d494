// SPDX-License-Identifier: MIT
// What is there: ports, and the camera on one of them.
#include "ctl/tasks.h"
#include "link/temperature.h"
#include "params/versiontext.h"

#include <QtCore/QJsonArray>
#include <QtSerialPort/QSerialPortInfo>

namespace tavrel::ctl {

Status listPorts(const Request&, Answer& answer)
{
    QJsonArray list;
    std::vector<QStringList> rows;
    const QList<QSerialPortInfo> ports = QSerialPortInfo::availablePorts();
    for (const QSerialPortInfo& port : ports) {
        list.append(QJsonObject{{QStringLiteral("name"), port.portName()},
                                {QStringLiteral("description"), port.description()},
                                {QStringLiteral("manufacturer"), port.manufacturer()}});
        rows.push_back({port.portName(), port.description(), port.manufacturer()});
    }
    answer.json.insert(QStringLiteral("ports"), list);
    answer.table(rows);
    return Status::Done;
}

Status showInfo(const Request& request, Answer& answer)
{
    Session session(sessionOptions(request));
    std::vector<QStringList> rows;
    const auto tell = [&](const char* name, const char* key, const QString& text,
                          const QJsonValue& value) {
        rows.push_back({QLatin1String(name), text});
        answer.json.insert(QLatin1String(key), value);
    };
    const auto number = [&](const char* name, const char* key, std::uint32_t value,
                            const char* unit = "") {
        tell(name, key, QString::number(value) + QLatin1String(unit), double{1} * value);
    };
    const auto words = [&](const char* name, const char* key, const std::string& text) {
        tell(name, key, QString::fromStdString(text), QString::fromStdString(text));
    };
    words("processor version", "processorVersion", processorVersion(session.versions()));
    words("FPGA version", "fpgaVersion", fpgaVersion(session.versions()));
    words("variant", "variant", variantName(session.versions()));
    number("serial number", "serialNumber",
           session.ask(QStringLiteral("serial number"),
                       [](auto& camera) { return camera.getSerialNumber(); }));
    number("sensor serial number", "sensorSerialNumber",
           session.ask(QStringLiteral("sensor serial number"),
                       [](auto& camera) { return camera.getSensorSerialNumber(); }));

    bool complete = true;
    const auto missing = [&](const char* name, const char* key) {
        complete = false;
        tell(name, key, QStringLiteral("not readable"), QJsonValue::Null);
    };
    ombrix_sdk::OperatingTime time{};
    if (session.ask(QStringLiteral("operating time"),
                    [&](auto& camera) { return camera.getOperatingTime(&time); }) != 0) {
        number("operating time", "operatingMinutes", time.minutes, " min");
        number("starts", "starts", time.startups);
    } else {
        missing("operating time", "operatingMinutes");
        missing("starts", "starts");
    }
    ombrix_sdk::Temperatures temperatures{};
    if (session.ask(QStringLiteral("temperatures"),
                    [&](auto& camera) { return camera.getTemperatures(&temperatures); }) != 0) {
        const auto celsius = [&](const char* name, const char* key, float milliKelvin) {
            const QString text = temperatureText(milliKelvin);
            tell(name, key, text, text.section(QLatin1Char(' '), 0, 0).toDouble());
        };
        celsius("FPGA temperature", "fpgaTemperature", temperatures.fpga);
        celsius("sensor temperature", "sensorTemperature", temperatures.sensor);
    } else {
        missing("FPGA temperature", "fpgaTemperature");
        missing("sensor temperature", "sensorTemperature");
    }
    session.expectPresence();
    answer.table(rows);
    return complete ? Status::Done : Status::Differs;
}

} // namespace tavrel::ctl
