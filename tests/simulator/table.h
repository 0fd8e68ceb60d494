// SPDX-License-Identifier: MIT
// A reader of bad pixel tables, written from the rule by which tables are read and sharing nothing
// with the simulator: the first record counts even with index 0, unless its index is beyond 307200;
// every later one counts while its index lies from 1 to 307200; a second record that does not count
// stalls the reader.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QVector>

namespace table {

struct Reading {
    bool stalls = false;
    int count = 0;                 ///< records that were taken
    QVector<int> pixels;           ///< their indexes, ascending, without those past the map
    QVector<quint64> replacements; ///< bits 0 to 42 of the records of pixels
};

/// region: the 8192 bytes of the camera's table region.
Reading read(const QByteArray& region);

/// A region as the tool sends it: the table, one 0x00, then 0xFF.
QByteArray asSent(const QByteArray& tableFile);

/// A map file with these bad pixels.
QByteArray mapOf(const QVector<int>& pixels);
/// The bad pixels of a map file, ascending.
QVector<int> pixelsOf(const QByteArray& map);

/// The good pixels that replace a bad one, as its record's replacement says.
QVector<int> replacementPixels(int pixel, quint64 replacement);

} // namespace table
