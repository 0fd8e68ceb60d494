// SPDX-License-Identifier: MIT
// Reading and writing whole files.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <optional>
#include <string>

namespace simulator {

/// A path as it crosses the boundary: in the 8-bit encoding of the system.
QString pathFromBytes(const std::string& path);

/// The content of a file that must hold exactly this many bytes, or nothing and the reason.
std::optional<QByteArray> readFile(const QString& path, qint64 size, QString* reason);

/// Replaces the file by the content: the old content or the new one is there at any time, never a
/// part, unless the folder forbids new files; then the file is written in place.
bool writeFile(const QString& path, const QByteArray& content, QString* reason);

/// Moves a file that cannot be used out of the way and returns its new name, or an empty text when
/// that failed.
QString setAside(const QString& path);

} // namespace simulator
