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

// The holding directory of the drains of WorkDir (PrepareWorkDir, CheckRepack, the member
// list): WorkDir + "/temp", or "temp1", "temp2", ... when a file of WorkDir (a member, or
// something an emulator wrote) already has that name.
QString TempDir();
// Removes a holding directory left standing, chooses a name that no entry of WorkDir has, and
// makes the directory; false when it can't be made.
bool OpenTempDir();

void CleanWorkDir();
void CleanTempDir();
void RestoreTempDir();

// Always returns true (-1).
int16_t CheckRepack(uint8_t HardWare, uint8_t ArcCheckFlag, uint8_t ReArcCheckFlag,
                    const QString& JituFile, QString StartFile, const FileList& FileList);

} // namespace tv
