// SPDX-License-Identifier: MIT
#include "simulator/files.h"

#include <QtCore/QFileInfo>
#include <QtCore/QSaveFile>

#include <filesystem>
#include <system_error>

namespace simulator {
namespace {

bool isNamedPipe(const QString& path)
{
    std::error_code noFile;
    // What a pipe that is open already has for a name leads to no file.
    return std::filesystem::is_fifo(path.toStdU16String(), noFile) &&
           !QFileInfo(path).canonicalFilePath().isEmpty();
}

} // namespace

QString pathFromBytes(const std::string& path)
{
    return QFile::decodeName(QByteArray::fromStdString(path));
}

QString reasonAgainstOpening(const QString& path)
{
    if (path.isEmpty()) {
        return QStringLiteral("no file is named");
    }
    if (QFileInfo(path).isDir()) {
        return QStringLiteral("it is a folder");
    }
    return isNamedPipe(path) ? QStringLiteral("it is a named pipe") : QString();
}

bool isSameFile(const QString& path, const QString& other)
{
    namespace fs = std::filesystem;
    std::error_code error;
    const fs::path first = path.toStdU16String();
    const fs::path second = other.toStdU16String();
    if (path.isEmpty() || other.isEmpty() || fs::is_other(fs::status(first, error))) {
        return false;
    }
    const fs::path end = fs::weakly_canonical(first, error);
    return (!end.empty() && end == fs::weakly_canonical(second, error)) ||
           fs::equivalent(first, second, error);
}

bool openForAppending(QFile& file, QString* reason)
{
    *reason = reasonAgainstOpening(file.fileName());
    if (!reason->isEmpty()) {
        return false;
    }
    // A device or pipe has no end, and Qt says on standard error that it looked for one.
    const QFileInfo info(file.fileName());
    const bool hasEnd = info.isFile() || !info.exists();
    if (!file.open(QIODevice::WriteOnly | QIODevice::Text |
                   (hasEnd ? QIODevice::Append : QIODevice::NotOpen))) {
        *reason = file.errorString();
        return false;
    }
    return true;
}

std::optional<QByteArray> readFile(const QString& path, qint64 size, QString* reason)
{
    *reason = reasonAgainstOpening(path);
    if (!reason->isEmpty()) {
        return std::nullopt;
    }
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        *reason = file.errorString();
        return std::nullopt;
    }
    const QByteArray content = file.read(size + 1);
    if (file.error() != QFileDevice::NoError) {
        *reason = file.errorString();
        return std::nullopt;
    }
    if (content.size() != size) {
        *reason = QStringLiteral("it does not hold %1 bytes").arg(size);
        return std::nullopt;
    }
    return content;
}

bool writeFile(const QString& path, const QByteArray& content, QString* reason)
{
    QSaveFile file(path);
    file.setDirectWriteFallback(true);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size() ||
        !file.commit()) {
        *reason = file.errorString();
        return false;
    }
    return true;
}

QString setAside(const QString& path)
{
    constexpr int mostNames = 1000;
    for (int number = 1; number <= mostNames; ++number) {
        const QString name =
            number == 1 ? QStringLiteral("%1.damaged").arg(path)
                        : QStringLiteral("%1.damaged-%2").arg(path, QString::number(number));
        if (!QFileInfo::exists(name)) {
            return QFile::rename(path, name) ? name : QString();
        }
    }
    return {};
}

} // namespace simulator
