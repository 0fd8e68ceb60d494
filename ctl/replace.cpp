// SPDX-License-Identifier: MIT
#include "ctl/replace.h"

#include "ctl/failure.h"

#include <QtCore/QSaveFile>

#include <filesystem>
#include <system_error>

namespace tavrel::ctl {

void replaceFile(const QString& file, const QByteArray& content)
{
    using Type = std::filesystem::file_type;
    const auto refuse = [&](const QString& why) {
        throw Failure(Status::Usage, file + QLatin1String(": ") + why);
    };
    const auto cannot = [&](const QString& reason) {
        refuse(QStringLiteral("cannot be written (%1); what was there is still there").arg(reason));
    };
    std::error_code error;
    const Type there = std::filesystem::status(file.toLocal8Bit().toStdString(), error).type();
    if (there == Type::none) {
        // A link that leads to itself, for example, which would be replaced by the file.
        cannot(QString::fromLocal8Bit(error.message().c_str()));
    }
    if (there != Type::regular && there != Type::not_found) {
        refuse(QStringLiteral("is no file"));
    }
    QSaveFile saved(file);
    // Flushed by itself, because its commit overlooks what finds no room then.
    if (!saved.open(QIODevice::WriteOnly) || saved.write(content) != content.size() ||
        !saved.flush() || !saved.commit()) {
        cannot(saved.errorString());
    }
}

} // namespace tavrel::ctl
