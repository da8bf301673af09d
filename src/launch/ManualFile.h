#pragma once
// The manual of a title: which file it is, unpacked from the title's archive when it lives
// there, and its hand-over to the desktop's open handler.
#include <QObject>
#include <QString>

namespace tv {

class clsLst;

inline const QString kManualBadText =
    QStringLiteral("マニュアルドキュメントファイル指定が不正です。");
inline const QString kManualOpenErrorText =
    QStringLiteral("マニュアルドキュメントファイルOpenエラー");

// True when the manual is a member of the title's archive: MeltManFlag set and the archive's
// extension one of the archive types.
bool ManualInArchive(const clsLst& item);

// The file to open for the manual of the working copy of `item` in `family`, or "" when there
// is none. A plain manual is its path, or the bare name in the family's ImageDir. A manual in
// the archive is the member of that name once the archive (by path or in ImageDir) has been
// unpacked into PeekDir; `owner` owns the archiver's progress window.
QString ChooseManualFile(const clsLst& item, int family, QObject* owner);

// cmdManFile_Click: chooses the file and hands it to the desktop's open handler; tells the user
// when there is no such file or it can't be opened. True when it was opened.
bool OpenItemManual(const clsLst& item, int family, QObject* owner);

} // namespace tv
