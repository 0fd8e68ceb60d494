// SPDX-License-Identifier: MIT
// Opening, reading and writing files.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QFile>
#include <QtCore/QString>

#include <optional>
#include <string>

namespace simulator {

/// A path as it crosses the boundary: in the 8-bit encoding of the system.
QString pathFromBytes(const std::string& path);

/// Why the path must not be opened as a file, or an empty text: it is a folder, or a named pipe,
/// where nobody might be at the other end for ever. A pipe that is open already, as /dev/stdin may
/// be, is as good as a file.
QString reasonAgainstOpening(const QString& path);

/// Whether two paths lead to one file, by whatever links; a file that is not there counts as well.
/// False for devices and pipes, which hold nothing, and for an empty path.
bool isSameFile(const QString& path, const QString& other);

/// Opens a text file for writing behind what it holds; it is made if missing. False and the reason
/// when it cannot be opened.
bool openForAppending(QFile& file, QString* reason);

/// The content of a file that must hold exactly this many bytes, or nothing and the reason.
std::optional<QByteArray> readFile(const QString& path, qint64 size, QString* reason);

/// Replaces the file by the content: the old content or the new one is there at any time, never a
/// part, unless the folder forbids new files; then the file is written in place.
bool writeFile(const QString& path, const QByteArray& content, QString* reason);

/// Moves a file that cannot be used out of the way and returns its new name, or an empty text when
/// that failed.
QString setAside(const QString& path);

} // namespace simulator
