// SPDX-License-Identifier: MIT
#include "tests/simulator/scene.h"

#include "simulator/control.h"

#include <QtCore/QDateTime>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QRegularExpression>

namespace scene {
namespace {

const QString settingsFile = QStringLiteral("simulator.ini");
const QString logFile = QStringLiteral("sdk.log");

constexpr const char* variables[] = {
    "TAVREL_SIMULATOR_SETTINGS", "TAVREL_SIMULATOR_LOG",    "TAVREL_SIMULATOR_JOURNAL",
    "TAVREL_SIMULATOR_PLAN",     "TAVREL_SIMULATOR_MEMORY", "TAVREL_SIMULATOR_FACTORY_FRESH",
    "TAVREL_SIMULATOR_STRICT",   "TAVREL_SIMULATOR_SAFE",   "TAVREL_SIMULATOR_CONTROL"};

void clearVariables()
{
    for (const char* const variable : variables) {
        qunsetenv(variable);
    }
}

} // namespace

Scene::Scene(const QByteArray& settings) : startDirectory(QDir::currentPath())
{
    if (!temporary.isValid() || !QDir::setCurrent(temporary.path())) {
        qFatal("no temporary directory");
    }
    clearVariables();
    // Whoever asks first in a process starts the simulator; no scene's settings are there yet.
    ombrix_sdk::OmbrixSdk::get_instance();
    setVariable("TAVREL_SIMULATOR_LOG", path(logFile));
    restart(settings);
}

Scene::~Scene()
{
    QDir::setCurrent(startDirectory);
    clearVariables();
    // Lets go of the files of this scene.
    ombrix_simulator::restart();
}

void Scene::restart()
{
    ombrix_simulator::restart();
    currentLink = nullptr;
}

void Scene::restart(const QByteArray& settings)
{
    if (settings.isEmpty()) {
        QFile::remove(path(settingsFile));
    } else {
        write(settingsFile, settings);
    }
    restart();
}

void Scene::setVariable(const char* name, const QString& value)
{
    qputenv(name, value.toLocal8Bit());
}

ombrix_sdk::IOmbrixSdk& Scene::sdk()
{
    return *ombrix_sdk::OmbrixSdk::get_instance();
}

ombrix_sdk::ISdkConfiguration& Scene::configuration()
{
    return *sdk().getConfiguration();
}

ombrix_sdk::ICamera* Scene::open(const char* port)
{
    currentLink = sdk().createSerialLink();
    return currentLink->openCamera(port);
}

ombrix_sdk::ICamera& Scene::camera(const char* port)
{
    ombrix_sdk::ICamera* const opened = open(port);
    char context = 0;
    if (opened == nullptr || opened->connect(&context) != 1) {
        qFatal("no camera answers on %s", port);
    }
    return *opened;
}

QString Scene::path(const QString& name) const
{
    return temporary.filePath(name);
}

void Scene::write(const QString& name, const QByteArray& content)
{
    QFile file(path(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
        qFatal("cannot write %s", qPrintable(name));
    }
    file.flush();
    file.setFileTime(QDateTime::currentDateTime().addSecs(++writes),
                     QFileDevice::FileModificationTime);
}

QByteArray Scene::read(const QString& name) const
{
    QFile file(path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool Scene::exists(const QString& name) const
{
    return QFileInfo::exists(path(name));
}

QStringList Scene::newLog()
{
    const QByteArray content = read(logFile);
    QStringList lines = linesOf(content.mid(static_cast<int>(logRead)));
    logRead = content.size();
    for (QString& line : lines) {
        const QString mark = QStringLiteral("[simulated SDK] ");
        line = line.mid(line.indexOf(mark) + mark.size());
    }
    return lines;
}

QStringList Scene::newProblems()
{
    return newLog().filter(QRegularExpression(QStringLiteral("^problem ")));
}

QStringList Scene::journal() const
{
    return linesOf(read(QStringLiteral("journal.txt")));
}

QStringList linesOf(const QByteArray& text)
{
    return QString::fromUtf8(text)
        .remove(QLatin1Char('\r'))
        .split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

QByteArray ini(std::initializer_list<const char*> lines)
{
    QByteArray text;
    for (const char* const line : lines) {
        text += line;
        text += '\n';
    }
    return text;
}

} // namespace scene
