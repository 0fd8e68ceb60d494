// SPDX-License-Identifier: MIT
#include "ctl/session.h"

#include "app/platform.h"
#include "ctl/answer.h"

#include <QtCore/QJsonArray>
#include <QtSerialPort/QSerialPortInfo>

#include <cstdlib>
#include <string_view>
#include <utility>

namespace tavrel::ctl {

namespace {

/// Handed to the camera's connect; the SDK may keep it.
struct ConnectionContext {};

QString seconds(std::chrono::milliseconds time)
{
    return QString::number(static_cast<double>(time.count()) / 1000.0) + QStringLiteral(" s");
}

} // namespace

QStringList portNames()
{
    QStringList names;
    const QList<QSerialPortInfo> ports = QSerialPortInfo::availablePorts();
    for (const QSerialPortInfo& port : ports) {
        names.append(port.portName());
    }
    return names;
}

ombrix_sdk::ISdkConfiguration& configuration()
{
    static ombrix_sdk::IOmbrixSdk* const sdk = [] {
        auto* const root = ombrix_sdk::OmbrixSdk::get_instance();
        root->initialize();
        return root;
    }();
    return *sdk->getConfiguration();
}

bool isExpertMode()
{
    return configuration().isExpertModeEnabled() != 0;
}

Session::Session(SessionOptions sessionOptions)
    : options(std::move(sessionOptions)), watch(options.timeout, [this] { endLate(); })
{
    try {
        open();
    } catch (...) {
        close();
        throw;
    }
}

Session::~Session()
{
    close();
    endProgress();
}

void Session::open()
{
    const QStringList ports = portNames();
    if (!ports.contains(options.port)) {
        const QString there = ports.isEmpty()
                                  ? QStringLiteral("there is no serial port at all")
                                  : QStringLiteral("there are: ") + ports.join(QLatin1String(", "));
        throw Failure(Status::NoCamera,
                      QStringLiteral("no serial port %1; %2").arg(options.port, there));
    }
    ombrix_sdk::ISdkConfiguration& settings = configuration();
    const char* const type = settings.getCommunicationType();
    if (type == nullptr || std::string_view(type) != "UART") {
        throw Failure(Status::NoCamera,
                      QStringLiteral("the SDK is not configured for a serial link (UART)"));
    }
    if (options.linkRate) {
        settings.setBaudRate(*options.linkRate);
    }
    enter(QStringLiteral("opening the link"));
    link = ombrix_sdk::OmbrixSdk::get_instance()->createSerialLink();
    camera = link->openCamera(options.port.toStdString().c_str());
    watch.end();
    if (camera == nullptr) {
        throw Failure(
            Status::NoCamera,
            QStringLiteral("no camera answers on %1: is it switched on, does it talk at "
                           "the link's baud rate, and does no other program use the port?")
                .arg(options.port));
    }
    static ConnectionContext context;
    const std::uint8_t answer =
        ask(QStringLiteral("greeting"), [](auto& device) { return device.connect(&context); });
    versionWords = ask(QStringLiteral("versions"), [](auto& device) {
        std::uint32_t words = 0;
        device.getVersions(&words);
        return words;
    });
    // Only this one byte means that a camera answered.
    if (answer != 1 || versionWords == 0) {
        throw Failure(Status::NoCamera,
                      QStringLiteral("the camera on %1 does not answer").arg(options.port));
    }
    ask(QStringLiteral("refresh"), [](auto& device) {
        device.refresh();
        return true;
    });
}

void Session::close()
{
    if (link == nullptr) {
        return;
    }
    watch.begin();
    if (camera != nullptr) {
        link->closeCamera(camera);
    }
    ombrix_sdk::OmbrixSdk::get_instance()->releaseSerialLink(&link);
    watch.end();
    link = nullptr;
}

void Session::enter(const QString& what, bool isStep)
{
    if (platform::wasInterrupted()) {
        const QString message = QStringLiteral("interrupted before %1").arg(what);
        throw steps.empty()
            ? Failure(Status::Differs, message + QStringLiteral("; nothing was done"))
            : ending(Status::Differs, message);
    }
    if (isStep) {
        settle(what, Step::Fate::UnderWay);
    }
    {
        const std::lock_guard<std::mutex> lock(mutex);
        current = what;
    }
    if (options.showsProgress) {
        showProgress(what);
    }
    watch.begin();
}

void Session::endLate()
{
    QString message;
    {
        const std::lock_guard<std::mutex> lock(mutex);
        message =
            QStringLiteral("no answer to \"%1\" within %2").arg(current, seconds(options.timeout));
    }
    complain(ending(Status::NoCamera, message), options.json);
    // The call that does not come back holds everything else.
    std::_Exit(static_cast<int>(Status::NoCamera));
}

void Session::expectPresence()
{
    QString lost;
    if (!portNames().contains(options.port)) {
        lost = QStringLiteral("the port %1 has gone").arg(options.port);
    } else {
        const std::uint32_t words = ask(QStringLiteral("versions"), [](auto& device) {
            std::uint32_t read = 0;
            device.getVersions(&read);
            return read;
        });
        if (words != 0) {
            return;
        }
        lost = QStringLiteral("the camera on %1 does not answer any more").arg(options.port);
    }
    throw ending(Status::NoCamera, lost);
}

Values Session::read(const std::vector<std::size_t>& wanted)
{
    Values values(parameters().size());
    for (const std::size_t place : wanted) {
        const Command& command = commands()[place];
        if (!command.read) {
            continue;
        }
        std::vector<double> read(command.count);
        const bool told = ask(QLatin1String(parameters()[command.first].name),
                              [&](auto& device) { return command.read(device, read); });
        for (std::size_t index = 0; told && index < command.count; ++index) {
            values[command.first + index] = read[index];
        }
    }
    // A camera that has gone answers with zeros, which must not pass for its values.
    expectPresence();
    return values;
}

void Session::plan(const QStringList& names, const QString& doubt)
{
    const std::lock_guard<std::mutex> lock(mutex);
    steps.clear();
    for (const QString& name : names) {
        steps.push_back({name});
    }
    doubtfully = doubt;
}

void Session::settle(const QString& what, Step::Fate fate)
{
    const std::lock_guard<std::mutex> lock(mutex);
    for (Step& step : steps) {
        if (step.name == what) {
            step.fate = fate;
        }
    }
}

Failure Session::ending(Status status, QString message) const
{
    struct Group {
        Step::Fate fate;
        const char* key;
        const char* words;
    };
    static constexpr Group groups[] = {
        {Step::Fate::Done, "done", "done"},
        {Step::Fate::Refused, "refused", "refused"},
        {Step::Fate::UnderWay, "unknown", "unknown whether done"},
        {Step::Fate::NotSent, "notSent", "not sent"},
    };
    const std::lock_guard<std::mutex> lock(mutex);
    QJsonObject details;
    for (const Group& group : groups) {
        QStringList names;
        for (const Step& step : steps) {
            if (step.fate == group.fate) {
                names.append(step.name);
            }
        }
        if (!steps.empty()) {
            details.insert(QLatin1String(group.key), QJsonArray::fromStringList(names));
        }
        if (!names.isEmpty()) {
            message += QStringLiteral("; %1: %2")
                           .arg(QLatin1String(group.words), names.join(QLatin1String(", ")));
        }
        if (!names.isEmpty() && group.fate == Step::Fate::UnderWay && !doubtfully.isEmpty()) {
            message += QStringLiteral("; ") + doubtfully;
        }
    }
    return {status, message, details};
}

} // namespace tavrel::ctl
