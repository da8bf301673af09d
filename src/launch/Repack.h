#pragma once
// The working directories of a launch and its last stage: what the emulator left in WorkDir
// goes back to the image, into the archive, or to the snapshot directory.
#include <QDateTime>
#include <QObject>
#include <QString>
#include <cstdint>
#include <functional>
#include <vector>

namespace tv {

// One row per file that stood in WorkDir at the end of stage 1: name and date-and-time text.
struct FileListRow {
    QString name;
    QString dateTime;
};
using FileList = std::vector<FileListRow>;

// The date-and-time of a file as text ("" when it isn't there). Stage 1 and stage 3 both use
// it, so the same file time gives the same text; milliseconds are kept, so a rewrite within
// the same second is seen as a change.
QString FileDateTimeText(const QString& path);
QString DateTimeText(const QDateTime& time);

// WorkDir + "/temp", the holding place inside PrepareWorkDir and CheckRepack.
QString TempDir();

void CleanWorkDir();
void CleanTempDir();
void RestoreTempDir();

// Always returns true (-1).
int16_t CheckRepack(uint8_t HardWare, uint8_t ArcCheckFlag, uint8_t ReArcCheckFlag,
                    const QString& JituFile, QString StartFile, const FileList& FileList);

} // namespace tv
