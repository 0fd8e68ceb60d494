// SPDX-License-Identifier: MIT
#include "ctl/profile.h"

#include "bpr/storage.h"
#include "ctl/answer.h"
#include "ctl/failure.h"
#include "ctl/replace.h"
#include "ctl/session.h"
#include "ctl/toml.h"
#include "params/versiontext.h"
#include "ui/version.h"

#include <QtCore/QLocale>

#include <string_view>

namespace tavrel::ctl {

namespace {

/// Raised when an older program would misunderstand a newer file.
constexpr int formatVersion = 1;

struct Section {
    const char* name;
    Level level;
};
constexpr Section sections[] = {{"user", Level::User}, {"expert", Level::Expert}};
constexpr char cameraSection[] = "camera";

[[noreturn]] void refuse(const QString& file, int line, const QString& why)
{
    throw Failure(Status::Usage,
                  line > 0 ? QStringLiteral("%1, line %2: %3").arg(file, QString::number(line), why)
                           : QStringLiteral("%1: %2").arg(file, why));
}

int lineOf(const toml::node& node)
{
    return static_cast<int>(node.source().begin.line);
}

/// What stands in a profile; on a terminal it does nothing but be seen.
QString textOf(std::string_view bytes)
{
    return printable(QString::fromUtf8(bytes.data(), static_cast<int>(bytes.size())));
}

QByteArray contentOf(const QString& file)
{
    constexpr qint64 most = 1048576;
    QFile opened;
    if (!bpr::openForReading(opened, file.toLocal8Bit().toStdString())) {
        refuse(file, 0, QStringLiteral("cannot be read"));
    }
    if (opened.size() > most) {
        refuse(file, 0, QStringLiteral("is too large for a profile"));
    }
    QByteArray content = opened.readAll();
    if (content.trimmed().isEmpty()) {
        refuse(file, 0, QStringLiteral("is empty"));
    }
    return content;
}

/// A value as it would be written on the command line; none when it is something else.
std::optional<QString> written(const Parameter& parameter, const toml::node& node)
{
    if (const auto* const text = node.as_string()) {
        return textOf(text->get());
    }
    if (const auto* const yes = node.as_boolean()) {
        return parameter.isSwitch ? (yes->get() ? QStringLiteral("on") : QStringLiteral("off"))
                                  : (yes->get() ? QStringLiteral("true") : QStringLiteral("false"));
    }
    if (const auto* const whole = node.as_integer()) {
        return QString::number(whole->get());
    }
    if (const auto* const real = node.as_floating_point()) {
        return QString::number(real->get(), 'g', QLocale::FloatingPointShortest);
    }
    return std::nullopt;
}

const char* kindOf(const toml::node& node)
{
    return node.is_table() ? "a table" : node.is_array() ? "a list" : "a date or time";
}

/// Why a profile cannot have this there.
QString problemWith(const Parameter& parameter, const toml::node& node)
{
    const std::optional<QString> text = written(parameter, node);
    if (text && !parameter.isSwitch) {
        return valueOf(parameter, *text, configuration()).problem;
    }
    const QString found =
        text ? QLatin1Char('"') + *text + QLatin1Char('"') : QLatin1String(kindOf(node));
    return QStringLiteral("%1 is not %2")
        .arg(found, parameter.isSwitch ? QStringLiteral("true or false")
                                       : rangeOf(parameter, configuration()));
}

void readSection(Profile& profile, const Section& section, const toml::table& table)
{
    for (const auto& [key, node] : table) {
        const int line = lineOf(node);
        const QString name = textOf(key.str());
        const std::optional<std::size_t> place = parameterNamed(name);
        if (!place || parameters()[*place].keeping == Keeping::Never) {
            refuse(profile.file, line, QStringLiteral("unknown parameter \"%1\"").arg(name));
        }
        const Parameter& parameter = parameters()[*place];
        if (parameter.level != section.level) {
            refuse(profile.file, line,
                   QStringLiteral("%1 does not belong under [%2]")
                       .arg(name, QLatin1String(section.name)));
        }
        if (section.level == Level::Expert && !isExpertMode()) {
            refuse(profile.file, line,
                   QStringLiteral("%1 is an expert parameter, and the SDK's configuration has the "
                                  "expert mode off")
                       .arg(name));
        }
        const std::optional<QString> text = written(parameter, node);
        const std::optional<double> value =
            text ? valueOf(parameter, *text, configuration()).value : std::nullopt;
        if (!value) {
            refuse(profile.file, line, name + QLatin1String(": ") + problemWith(parameter, node));
        }
        profile.values[*place] = value;
        profile.lines[*place] = line;
    }
}

void readContent(Profile& profile, const toml::table& table)
{
    const toml::node* const format = table.get("format");
    if (format == nullptr || !format->is_integer()) {
        refuse(profile.file, 0, QStringLiteral("is no profile: it has no \"format\""));
    }
    if (const auto version = format->as_integer()->get(); version != formatVersion) {
        refuse(profile.file, lineOf(*format),
               QStringLiteral("format %1 is unknown; this program knows %2")
                   .arg(version)
                   .arg(formatVersion));
    }
    for (const auto& [key, node] : table) {
        const QString name = textOf(key.str());
        if (name == QLatin1String("format") || name == QLatin1String(cameraSection)) {
            continue;
        }
        const Section* found = nullptr;
        for (const Section& section : sections) {
            if (name == QLatin1String(section.name) && node.is_table()) {
                found = &section;
            }
        }
        if (found == nullptr) {
            refuse(profile.file, lineOf(node), QStringLiteral("unknown name \"%1\"").arg(name));
        }
        readSection(profile, *found, *node.as_table());
    }
    // It stands last, so a file that was cut off has none of it.
    const auto variant = table[cameraSection]["variant"].value<std::string>();
    if (!variant) {
        refuse(profile.file, 0,
               QStringLiteral("does not end with [camera] and its variant: it was cut off"));
    }
    profile.variant = textOf(*variant);
}

QString asToml(const Parameter& parameter, double value)
{
    if (parameter.isSwitch) {
        return value != 0 ? QStringLiteral("true") : QStringLiteral("false");
    }
    const QString text = tavrel::textOf(parameter, value);
    bool isNumber = false;
    (void)text.toDouble(&isNumber);
    return isNumber ? text : QLatin1Char('"') + text + QLatin1Char('"');
}

QString profileText(const Origin& origin, const Values& values)
{
    constexpr int valueWidth = 46;
    QString text =
        QStringLiteral("# Settings of an Ombrix KV camera. A name that is left out is left "
                       "as the camera has it.\nformat = %1\n")
            .arg(formatVersion);
    for (const Section& section : sections) {
        bool isBegun = false;
        for (std::size_t place = 0; place < values.size(); ++place) {
            const Parameter& parameter = parameters()[place];
            if (parameter.level != section.level || !values[place]) {
                continue;
            }
            if (!isBegun) {
                text += QStringLiteral("\n[%1]\n").arg(QLatin1String(section.name));
                isBegun = true;
            }
            const QString line = QLatin1String(parameter.name) + QLatin1String(" = ") +
                                 asToml(parameter, *values[place]);
            text += parameter.isSwitch
                        ? line + QLatin1Char('\n')
                        : line.leftJustified(valueWidth) + QLatin1String("# ") +
                              rangeOf(parameter, configuration()) + QLatin1Char('\n');
        }
    }
    const auto row = [&](const char* name, const QString& value) {
        text += QLatin1String(name) + QLatin1String(" = ") + value + QLatin1Char('\n');
    };
    const auto quoted = [](const std::string& value) {
        return QLatin1Char('"') + QString::fromStdString(value) + QLatin1Char('"');
    };
    text += QStringLiteral("\n# Where the settings come from; it stands last.\n[%1]\n")
                .arg(QLatin1String(cameraSection));
    row("tool", quoted(std::string(productName) + ' ' + productVersion));
    row("serial-number", QString::number(origin.serialNumber));
    row("sensor-serial-number", QString::number(origin.sensorSerialNumber));
    row("processor-version", quoted(processorVersion(origin.versions)));
    row("fpga-version", quoted(fpgaVersion(origin.versions)));
    row("variant", quoted(variantName(origin.versions)));
    return text;
}

} // namespace

QString Profile::whereabouts(std::size_t place) const
{
    return QStringLiteral("%1, line %2").arg(file, QString::number(lines[place]));
}

Profile readProfile(const QString& file)
{
    const QByteArray content = contentOf(file);
    Profile profile{file, {}, Values(parameters().size()), std::vector<int>(parameters().size())};
    try {
        readContent(profile, toml::parse(std::string_view(
                                 content.constData(), static_cast<std::size_t>(content.size()))));
    } catch (const toml::parse_error& error) {
        refuse(file, static_cast<int>(error.source().begin.line), textOf(error.description()));
    }
    return profile;
}

void writeProfile(const QString& file, const Origin& origin, const Values& values)
{
    replaceFile(file, profileText(origin, values).toUtf8());
}

} // namespace tavrel::ctl
