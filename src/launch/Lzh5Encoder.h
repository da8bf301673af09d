#pragma once
// The system's own LZH writer: -lh5- members (8 KiB sliding dictionary, static Huffman blocks)
// in level-1 headers, read by every LZH archiver.
#include <QString>
#include <QStringList>
#include <functional>

namespace tv {

// Writes a -lh5- LZH archive holding `files` (bare names in Shift-JIS, file times kept),
// replacing `archivePath` through a temporary file and an atomic rename. `progress`, when
// given, is called with bytes done and total. False on any failure (nothing left behind).
bool WriteLzh5Archive(const QString& archivePath, const QStringList& files,
                      const std::function<void(qint64, qint64)>& progress = {});

} // namespace tv
