#pragma once
// Bulk registration of files dropped on the title list. One drop is one transaction: the
// catalogue is copied to its work file first, each file becomes a record made from what can be
// told without asking (title from the name or a text file beside it, default options), and a
// stop by the user or a catalogue that can't be written brings the catalogue and the list back
// to the copy. The side lists keep what was added. No widgets: the progress window calls in.
#include <QObject>
#include <QString>
#include <QStringList>
#include <cstdint>
#include <functional>

namespace tv {

class TitleListModel;

inline const QString kDDAddCaption = QStringLiteral("Ｄ＆Ｄリスト登録");
inline const QString kDDAddStopQuestion = QStringLiteral("中断しますか？");
inline const QString kDDAddStoppedText = QStringLiteral("D&D登録は中止されました");
inline const QString kDDAddCancelCaption = QStringLiteral("登録中止");
inline constexpr int kDDAddStopFlags = 68; // yes and no, information icon

// "/ " n " 件目を登録中．．．"
QString DDAddMaxCountText(int count);
// The final message of a finished drop.
QString DDAddDoneText(int registered, int failures);
// ".d88", ".d77", ".d88": the start file assumed for an archive that isn't looked into.
QString DDAddDefaultExt(int family);

class DDAdd {
public:
    // `files` in the order of the drop; `model` takes the new rows (null for none).
    DDAdd(QStringList files, TitleListModel* model);
    ~DDAdd();
    DDAdd(const DDAdd&) = delete;
    DDAdd& operator=(const DDAdd&) = delete;

    // Form_Load: the roll-back copy of the current family's catalogue and FirstNew. False,
    // after a box that says why, when the copy can't be made: nothing may be registered then.
    bool Begin();
    // The loop over the files. True unless the drop was stopped by the user or rolled back
    // after the catalogue could not be written; the catalogue and the list are back at the
    // copy in those cases.
    bool Search();
    // Form_Unload: the roll-back copy goes, unless it is the only good catalogue left.
    void End();

    // Set by the window's stop button; tested at the top of each file.
    uint8_t StopFlag = 0;
    // Before each file: its running number (from 1) and path.
    std::function<void(int, const QString&)> onFile;
    // Lets the window serve its events; empty for none.
    std::function<void()> yield;
    // Owner of the archivers' progress windows; null takes the main window's.
    QObject* progressOwner = nullptr;

    int fileCount() const { return int(files_.size()); }
    int failures() const { return failures_; }
    int registered() const { return registered_; }
    int32_t firstNew() const { return firstNew_; }
    bool stopped() const { return stopped_; }
    // The catalogue could not be written and the drop was rolled back.
    bool writeFailed() const { return writeFailed_; }
    QString lstPath() const;
    QString workPath() const;

private:
    enum class Outcome { Registered, Failed, WriteFailed };
    Outcome AddOne(const QString& path);
    Outcome AddImage(const QString& path, const QString& name);
    Outcome AddArchive(const QString& path, const QString& name);
    Outcome SaveDDItem();
    void FitImported();
    void TitleFromStem(const QString& name);
    void ScreenshotFor(const QString& name);
    void RollBack();
    void Yield();

    QStringList files_;
    TitleListModel* model_;
    uint8_t family_ = 255;
    int32_t firstNew_ = 1;
    int failures_ = 0;
    int registered_ = 0;
    bool begun_ = false;
    bool stopped_ = false;
    bool writeFailed_ = false;
    bool keepCopy_ = false;
    bool ended_ = false;
};

} // namespace tv
