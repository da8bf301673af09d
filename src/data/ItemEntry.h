#pragma once
// The rules of entering a title by hand that need no window: the checks before a record is
// stored, the comment measure, the re-pack flag from its two boxes, the automatic look-up of
// a screenshot, and the storing of the entered fields into the catalogue.
#include <QString>
#include <array>
#include <cstdint>

namespace tv {

struct ItemEntry {
    QString Title;
    std::array<QString, 5> Col; // genre, maker, Column1, Column2, sale date (side-list kinds)
    QString Comment, JituFile, StartFileName, SecondFile, ScrFile, ManFile;
    bool ArcCheck = false, ReArc0 = false, ReArc1 = false, MeltMan = false;
    uint8_t DefEmuRun = 0;
};

// The messages of the checks, in the order in which they are made.
inline const QString kNoTitleText = QStringLiteral("ソフトのタイトルを入力してください！");
inline const QString kNoImageText = QStringLiteral("対象イメージを指定してください！");
inline const QString kNoStartText = QStringLiteral("スタートファイル名を指定してください！");
inline const QString kNoMeltManText =
    QStringLiteral("圧縮ファイル内のマニュアルドキュメントファイルを指定して下さい。");
inline const QString kBadManText =
    QStringLiteral("マニュアルドキュメントファイル指定が間違っています。");
inline const QString kLongCommentText =
    QStringLiteral("コメントは500バイト(半角500字、全角250字、改行2バイト含む)までです！");

// True when the comment is over the limit: its measure, less two per line break, over 500.
bool CommentTooLong(const QString& comment);
// The first failing check's message, or "" when the entry may be stored.
QString ValidateItemEntry(const ItemEntry& e);
// 1 re-pack without asking, 2 after asking (both boxes), 0 never: the sum of the boxes.
uint8_t ReArcCheckFlagOf(bool box0, bool box1);
// The picture for a start file and an image in SnapDir[family]: ".png", ".jpg", ".bmp", first
// for the stem of the start file, then for that of the image; its bare name, or "".
QString FindScreenshot(int family, const QString& startFile, const QString& jituFile);
// Puts the entry into the working copy of LstObj through its setters, in the dialog's order.
void PutItemEntry(const ItemEntry& e);
// The path of a registered image: a bare name or a path that isn't there is looked for in
// ImageDir[family].
QString ResolveJituPath(int family, const QString& jituFile);

} // namespace tv
