// SPDX-License-Identifier: MIT
#include "simulator/files.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QSaveFile>

namespace simulator {

QString pathFromBytes(const std::string& path)
{
    return QFile::decodeName(QByteArray::fromStdString(path));
}

std::optional<QByteArray> readFile(const QString& path, qint64 size, QString* reason)
{
    if (QFileInfo(path).isDir()) {
        *reason = QStringLiteral("it is a folder");
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
