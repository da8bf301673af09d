#include "launch/DryRun.h"

#include "data/Cfg.h"
#include "data/EmuRegistry.h"
#include "data/clsLst.h"
#include "launch/EmuAdapter.h"
#include "launch/ExecEmulator.h"
#include "launch/Launch.h"
#include "launch/MainWindowLink.h"
#include "launch/RunnerCheck.h"
#include "platform/MsgBox.h"
#include "util/Globals.h"
#include "util/Sjis.h"
#include "util/SubFunction.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTextStream>
#include <map>

namespace tv {

namespace {

// The launch's calls on the main window are recorded and kept from it: the window stays as
// it is under the dialog. What the launch asks of the window is answered by the real one.
class RecordingWindow : public MainWindowLink {
public:
    RecordingWindow(MainWindowLink& real, QStringList& steps) : real_(real), steps_(steps) {}

    void LoadTitle() override { real_.LoadTitle(); }
    void ShowTitle() override { real_.ShowTitle(); }
    void UnloadTitle() override { real_.UnloadTitle(); }
    void SetTitleMsg1(const QString& t) override { real_.SetTitleMsg1(t); }
    void SetTitleMsg2(const QString& t) override { real_.SetTitleMsg2(t); }
    void SetTitleCount(const QString& k, const QString& c) override { real_.SetTitleCount(k, c); }
    void FailStart() override { real_.FailStart(); }
    void HideMain() override { real_.HideMain(); }
    void ShowMain() override { real_.ShowMain(); }
    void SetMainMinimized() override { real_.SetMainMinimized(); }
    void SetMainVisible() override { real_.SetMainVisible(); }
    void SetListExStyle() override { real_.SetListExStyle(); }
    void ApplyCfgToWindow() override { real_.ApplyCfgToWindow(); }
    void CreateLstObj() override { real_.CreateLstObj(); }
    void ReleaseLstObj() override { real_.ReleaseLstObj(); }
    bool InitLst(int family) override { return real_.InitLst(family); }
    void SelectFamily(int family) override { real_.SelectFamily(family); }
    void PlaceWindow() override { real_.PlaceWindow(); }
    bool TrayAvailable() override { return real_.TrayAvailable(); }
    void SetTaskIcon() override { real_.SetTaskIcon(); }
    void RemoveTaskIcon() override { real_.RemoveTaskIcon(); }
    void ShowCfgDialog() override { real_.ShowCfgDialog(); }
    void CfgStored() override { real_.CfgStored(); }
    QString SelectedKey() override { return real_.SelectedKey(); }
    std::array<float, 6> ColumnWidths() override { return real_.ColumnWidths(); }
    int WindowState() override { return real_.WindowState(); }
    void RestoreNormalVisible() override { real_.RestoreNormalVisible(); }
    std::array<float, 4> WindowGeometry() override { return real_.WindowGeometry(); }
    void UnloadOtherForms() override { real_.UnloadOtherForms(); }

    bool HasSelectedItem() override { return real_.HasSelectedItem(); }
    void SetStatusText(const QString& t) override
    {
        steps_ << QStringLiteral("状態表示「%1」").arg(t);
    }
    void SetMainEnabled(bool on) override
    {
        steps_ << (on ? QStringLiteral("メインウィンドウを有効に")
                      : QStringLiteral("メインウィンドウを無効に"));
    }
    void MinimiseMain() override { steps_ << QStringLiteral("メインウィンドウを最小化"); }
    void RestoreMain() override { steps_ << QStringLiteral("メインウィンドウを元に戻す"); }
    void RefreshItemDetail() override { steps_ << QStringLiteral("詳細表示を更新"); }
    std::optional<int> P88SaveSlot() override { return real_.P88SaveSlot(); }
    QObject* Owner() override { return real_.Owner(); }

private:
    MainWindowLink& real_;
    QStringList& steps_;
};

// A file's size and digest, so directories are compared byte for byte without being held.
using Snapshot = std::map<QString, QByteArray>;

QByteArray Digest(const QString& path)
{
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly))
        return QByteArray("<unreadable>");
    QCryptographicHash h(QCryptographicHash::Sha256);
    h.addData(&f);
    return QByteArray::number(f.size()) + ':' + h.result();
}

void AddDir(Snapshot& s, const QString& dir)
{
    if (dir.isEmpty() || !QFileInfo(dir).isDir())
        return;
    for (const QFileInfo& fi : QDir(dir).entryInfoList(QDir::Files | QDir::Hidden | QDir::System))
        s[fi.absoluteFilePath()] = Digest(fi.absoluteFilePath());
}

void AddFile(Snapshot& s, const QString& path)
{
    if (!path.isEmpty() && QFileInfo(path).isFile())
        s[QFileInfo(path).absoluteFilePath()] = Digest(path);
}

// The directories of the emulator: the plain build's and the T-Tune build's.
QStringList EmuDirs(const EmuRow& row)
{
    QStringList dirs;
    if (row.dir && !VbTrim(Cfg.*row.dir).isEmpty())
        dirs << VbTrim(Cfg.*row.dir);
    if (row.tuneDir && !VbTrim(Cfg.*row.tuneDir).isEmpty())
        dirs << VbTrim(Cfg.*row.tuneDir);
    return dirs;
}

// The catalogued image as stage 1 finds it.
QString ImagePath(int family)
{
    const QString jitu = LstObj.GetJituFile();
    if (!FindFile(jitu).isEmpty())
        return jitu;
    const QString asGiven = ImageDir[family] + u'/' + VbTrim(jitu);
    if (!FindFile(asGiven).isEmpty())
        return asGiven;
    QString rest = jitu;
    return ImageDir[family] + u'/' + SplitFileName(rest);
}

QStringList Differences(const Snapshot& before, const Snapshot& after)
{
    QStringList out;
    for (const auto& [path, digest] : before) {
        const auto it = after.find(path);
        if (it == after.end())
            out << QStringLiteral("なくなった: %1").arg(path);
        else if (it->second != digest)
            out << QStringLiteral("内容が違う: %1").arg(path);
    }
    for (const auto& [path, digest] : after)
        if (!before.count(path))
            out << QStringLiteral("増えた: %1").arg(path);
    return out;
}

QStringList WorkDirEntries()
{
    return QDir(WorkDir).entryList(QDir::Files | QDir::Dirs | QDir::Hidden | QDir::NoDotAndDotDot,
                                   QDir::Name);
}

// Takes the starts in place of processes; at the emulator's start it looks at what the road
// has written for it.
class Recorder : public ProcessRecorder {
public:
    Recorder(DryRunReport& r, const Snapshot& before, const QStringList& dirs,
             const QStringList& leftovers)
        : r_(r), before_(before), dirs_(dirs), leftovers_(leftovers)
    {
    }
    void started(const LaunchCommand& cmd, const RunnerCommand* outer, bool detached) override
    {
        if (detached || r_.emulatorStarted) {
            LaunchCommand c = cmd;
            if (c.workingDir.isEmpty())
                c.workingDir = QDir::currentPath();
            r_.companions.push_back(c);
            r_.companionLines << (outer ? outer->shellLine() : QString());
            return;
        }
        r_.emulatorStarted = true;
        r_.specified = cmd;
        if (outer)
            r_.outer = *outer;
        r_.currentDir = cmd.workingDir.isEmpty() ? QDir::currentPath() : cmd.workingDir;
        r_.workDirAtStart = WorkDirEntries();
        Snapshot now;
        for (const QString& d : dirs_)
            AddDir(now, d);
        for (const auto& [path, digest] : now) {
            const auto it = before_.find(path);
            if (it == before_.end() || it->second != digest)
                add(path, it == before_.end());
        }
        // What the emulator is given in WorkDir beside the title (QUASI88's and j80's files).
        for (const QString& name : leftovers_) {
            const QString p = FindFileNoCase(WorkDir, name);
            if (!p.isEmpty())
                add(p, true);
        }
    }

private:
    void add(const QString& path, bool isNew)
    {
        QFile f(path);
        QByteArray bytes;
        if (f.open(QIODevice::ReadOnly))
            bytes = f.readAll();
        r_.written.push_back({path, bytes, isNew});
    }
    DryRunReport& r_;
    const Snapshot& before_;
    QStringList dirs_;
    QStringList leftovers_;
};

// Puts back, whatever way the road ends, the process-wide things the dry run changes.
struct Restore {
    explicit Restore(Emu e)
        : emu(e), hadRunner(Runners().count(e) > 0), runner(RunnerOf(e)), hardWare(HardWare),
          cwd(QDir::currentPath())
    {
    }
    Restore(const Restore&) = delete;
    Restore& operator=(const Restore&) = delete;
    ~Restore()
    {
        InstallProcessRecorder(recorder);
        SetInputRecordOnly(recordOnly);
        InstallWindow(window);
        if (hadRunner)
            Runners()[emu] = runner;
        else
            Runners().erase(emu);
        HardWare = hardWare;
        QDir::setCurrent(cwd);
        SetMsgBoxHandler(msgBox);
    }
    MsgBoxHandler msgBox;
    ProcessRecorder* recorder = nullptr;
    bool recordOnly = false;
    MainWindowLink* window = nullptr;
    const Emu emu;
    const bool hadRunner;
    const RunnerSettings runner;
    const uint8_t hardWare;
    const QString cwd;
};

// Why the dry run can't go ("" when it can), before anything is touched.
QString Refusal(Emu emu, const RunnerSettings& settings, bool titleSelected)
{
    const EmuRow& row = RowOf(emu);
    QString why;
    if (!LaunchRoadReady(row.code(), Cfg, &why))
        return why.isEmpty() ? QStringLiteral("この Emulator はまだ起動できません") : why;
    if (!WorkDirEntries().isEmpty())
        return QStringLiteral("TORVBOOT にファイルが残っているため試験起動できません");
    // Preparing a Wine prefix starts Wine for seconds; that is the first real launch's work.
    if (EffectiveRunner(emu, EmuProgramPath(emu), settings) == RunnerKind::Wine &&
        !WinePrefixPrepared(settings))
        return QStringLiteral("Wine の環境 %1 はまだ準備されていません。最初の起動で"
                              " wineboot -i が準備します（試験起動では準備しません）")
            .arg(WinePrefixOf(settings));
    if (titleSelected && HardWare != row.family)
        return QStringLiteral("選択中のタイトルは %1 の機種のものではありません")
            .arg(QLatin1String(row.listName));
    return {};
}

// The emulator's directories, the snapshot directory and the image, byte for byte.
Snapshot StateOf(const EmuRow& row, bool titleSelected)
{
    Snapshot s;
    for (const QString& d : EmuDirs(row))
        AddDir(s, d);
    AddDir(s, SnapDir[row.family]);
    if (titleSelected)
        AddFile(s, ImagePath(row.family));
    return s;
}

// The launch road with the recorders in place; everything is put back when it ends.
void RunRecorded(DryRunReport& r, const RunnerSettings& settings, Recorder& recorder)
{
    const EmuRow& row = RowOf(r.emu);
    RecordingWindow window(Window(), r.windowSteps);
    Restore restore(r.emu);
    restore.recorder = InstallProcessRecorder(&recorder);
    restore.recordOnly = SetInputRecordOnly(true);
    restore.window = InstallWindow(&window);
    restore.msgBox = SetMsgBoxHandler([&r](const MsgBoxCall& c) {
        static const QRegularExpression lineEnds(QStringLiteral("[\r\n]+"));
        r.messages << QStringLiteral("%1: %2").arg(
            c.caption, QString(c.text).replace(lineEnds, QStringLiteral(" ")));
        // Yes/no questions get "no": a dry run re-packs nothing.
        return (c.flags & MbYesNo) ? int(MbResNo) : DefaultMsgBoxAnswer(c.flags);
    });
    Runners()[r.emu] = settings;
    // The bare emulator starts for the family of its button.
    if (!r.titleSelected)
        HardWare = uint8_t(row.family);
    RunSelectedItem(row.code());
}

} // namespace

DryRunReport DryRunSelected(Emu emu, const RunnerSettings& settings)
{
    DryRunReport r;
    r.emu = emu;
    const EmuRow& row = RowOf(emu);
    r.titleSelected = Window().HasSelectedItem();
    r.refusal = Refusal(emu, settings, r.titleSelected);
    if (!r.refusal.isEmpty())
        return r;
    if (r.titleSelected)
        r.title = VbTrim(LstObj.GetTitle());

    Snapshot before = StateOf(row, r.titleSelected);
    Recorder recorder(r, before, EmuDirs(row), AdapterOf(row.code())->workLeftovers());
    const size_t inputFrom = InputLog().size();
    RunRecorded(r, settings, recorder);
    const auto& log = InputLog();
    for (size_t i = inputFrom; i < log.size(); ++i)
        r.input.push_back(log[i]);
    if (r.emulatorStarted && !r.outer) {
        QString outerWhy;
        r.outer = WrapCommand(emu, r.specified, settings, &outerWhy);
        r.outerRefusal = outerWhy;
    }

    // The state after. A configuration that the emulator didn't have stays as the launch wrote
    // it, by design.
    r.workDirLeft = WorkDirEntries();
    const Snapshot after = StateOf(row, r.titleSelected);
    for (const auto& [path, digest] : after) {
        const QString name = QFileInfo(path).fileName();
        const bool config =
            (row.config && name.compare(QLatin1String(row.config), Qt::CaseInsensitive) == 0) ||
            (row.configAlt && name.compare(QLatin1String(row.configAlt), Qt::CaseInsensitive) == 0);
        if (config && !before.count(path)) {
            r.keptConfigs << path;
            before[path] = digest;
        }
    }
    r.notRestored = Differences(before, after);
    r.comparedFiles = int(before.size() - size_t(r.keptConfigs.size()));
    return r;
}

namespace {

constexpr int kShownLines = 80;

QString Indented(const QString& text, int lines = kShownLines)
{
    QString out;
    const QStringList all = text.split(u'\n');
    int n = 0;
    for (QString line : all) {
        if (line.endsWith(u'\r'))
            line.chop(1);
        if (n == all.size() - 1 && line.isEmpty())
            break; // the line end behind the last line
        if (n++ == lines) {
            out += QStringLiteral("    …（以下 %1 行略）\n").arg(all.size() - lines);
            break;
        }
        out += QStringLiteral("    ") + line + u'\n';
    }
    return out;
}

// "新規", "変更", or for the emulator's backup name what it holds.
QString HowWritten(const DryRunReport& r, const DryRunFile& f)
{
    const EmuRow& row = RowOf(r.emu);
    const QString name = QFileInfo(f.path).fileName();
    for (const char* backup : {row.backup, row.backupAlt})
        if (backup && name.compare(QLatin1String(backup), Qt::CaseInsensitive) == 0)
            return QStringLiteral("利用者の設定の控え");
    return f.isNew ? QStringLiteral("新規") : QStringLiteral("変更");
}

// A file as a person reads it: its text (configuration files are Shift-JIS), or its size.
QString FileText(const DryRunReport& r, const DryRunFile& f)
{
    const QString head =
        QStringLiteral("  %1（%2、%3 バイト）\n").arg(f.path, HowWritten(r, f)).arg(f.bytes.size());
    if (f.bytes.contains('\0') || f.bytes.size() > 64 * 1024)
        return head;
    return head + Indented(FromSjis(f.bytes));
}

QString Heading(const DryRunReport& r, const QString& what)
{
    const EmuRow& row = RowOf(r.emu);
    QString t = QStringLiteral("%1: %2").arg(what, QLatin1String(row.listName));
    t += r.titleSelected ? QStringLiteral(" — タイトル「%1」\n").arg(r.title)
                         : QStringLiteral(" — タイトルの選択なし（Emulator のみの起動）\n");
    return t;
}

QString InputText(const DryRunReport& r)
{
    if (r.input.empty())
        return QStringLiteral("  なし\n");
    QString out;
    for (const InputRecord& in : r.input)
        out += in.kind == InputRecord::Clip ? QStringLiteral("  クリップボード: %1\n").arg(in.text)
                                            : QStringLiteral("  キー: %1\n").arg(in.text);
    return out;
}

QString OuterText(const DryRunReport& r)
{
    if (!r.outer)
        return QStringLiteral("ランナーが起動を断ります: %1\n").arg(r.outerRefusal);
    if (r.outer->shellLine() == r.specified.text() && r.outer->generated.empty())
        return QStringLiteral("ランナー: %1（指定のコマンドラインをそのまま起動）\n")
            .arg(RunnerKindText(r.outer->kind));
    QString out = QStringLiteral("ランナー: %1\n外側のコマンド:\n  %2\n")
                      .arg(RunnerKindText(r.outer->kind), r.outer->shellLine());
    out += QStringLiteral("外側の作業ディレクトリ: %1\n")
               .arg(r.outer->workingDir.isEmpty() ? r.currentDir : r.outer->workingDir);
    if (!r.outer->outputFile.isEmpty())
        out += QStringLiteral("出力の行き先: %1\n").arg(r.outer->outputFile);
    if (!r.outer->generated.empty()) {
        out += QStringLiteral("起動のために作るファイル（終了後に消します）:\n");
        for (const RunnerCommand::GeneratedFile& g : r.outer->generated) {
            if (!g.linkTarget.isEmpty()) {
                out += QStringLiteral("  %1 → %2（リンク）\n").arg(g.path, g.linkTarget);
            } else {
                out += QStringLiteral("  %1\n").arg(g.path);
                out += Indented(g.text);
            }
        }
    }
    return out;
}

QString CompanionsText(const DryRunReport& r)
{
    QString out;
    for (size_t i = 0; i < r.companions.size(); ++i) {
        const LaunchCommand& c = r.companions[i];
        out += QStringLiteral("  %1（%2 で）\n").arg(c.text(), c.workingDir);
        const QString line = r.companionLines.value(qsizetype(i));
        if (!line.isEmpty() && line != c.text())
            out += QStringLiteral("    外側: %1\n").arg(line);
    }
    return out;
}

} // namespace

QString CommandViewText(const DryRunReport& r)
{
    QString out = Heading(r, QStringLiteral("コマンド表示"));
    if (!r.refusal.isEmpty())
        return out + r.refusal + u'\n';
    if (!r.emulatorStarted) {
        if (!r.messages.isEmpty())
            out += QStringLiteral("表示されたメッセージ:\n  %1\n")
                       .arg(r.messages.join(QStringLiteral("\n  ")));
        if (!r.companions.empty())
            return out + QStringLiteral("Emulator だけを起動します（待たずに戻ります）:\n") +
                   CompanionsText(r);
        return out + QStringLiteral("この起動は Emulator の起動までに終わります"
                                    "（このタイトルの種類を受け付けない、など）\n");
    }
    out += QStringLiteral("指定のコマンドライン:\n  %1\n").arg(r.specified.text());
    out += QStringLiteral("作業ディレクトリ: %1\n").arg(r.currentDir);
    out += OuterText(r);
    out += QStringLiteral("Emulator のために書かれるファイル:\n");
    if (r.written.empty())
        out += QStringLiteral("  なし\n");
    for (const DryRunFile& f : r.written)
        out += FileText(r, f);
    out += QStringLiteral("クリップボードとキー（順に）:\n") + InputText(r);
    if (!r.companions.empty())
        out += QStringLiteral("一緒に起動するもの:\n") + CompanionsText(r);
    return out;
}

QString DryRunReportText(const DryRunReport& r)
{
    QString out = Heading(r, QStringLiteral("試験起動"));
    if (!r.refusal.isEmpty())
        return out + r.refusal + u'\n';
    out += QStringLiteral(
        "プロセス・キー・クリップボードは記録だけで、実際には何も起動していません。\n");
    if (r.emulatorStarted) {
        out += QStringLiteral("1. TORVBOOT に用意されたファイル: %1\n")
                   .arg(r.workDirAtStart.isEmpty() ? QStringLiteral("なし")
                                                   : r.workDirAtStart.join(QStringLiteral(", ")));
        out += QStringLiteral("2. Emulator のために書かれたファイル: %1\n").arg(r.written.size());
        for (const DryRunFile& f : r.written)
            out += QStringLiteral("  %1（%2）\n").arg(f.path, HowWritten(r, f));
        out += QStringLiteral("3. 起動するコマンド（%1 で）:\n  %2\n")
                   .arg(r.currentDir, r.specified.text());
        if (!r.outer)
            out += QStringLiteral("  ランナーが起動を断ります: %1\n").arg(r.outerRefusal);
        else if (r.outer->shellLine() != r.specified.text())
            out += QStringLiteral("  外側（%1）: %2\n")
                       .arg(RunnerKindText(r.outer->kind), r.outer->shellLine());
        out += QStringLiteral("4. クリップボードとキー:\n") + InputText(r);
    } else {
        out += QStringLiteral("Emulator の起動には至りませんでした。\n");
    }
    if (!r.companions.empty())
        out += QStringLiteral("一緒に起動するもの:\n") + CompanionsText(r);
    if (!r.messages.isEmpty())
        out += QStringLiteral("表示されたメッセージ:\n  %1\n")
                   .arg(r.messages.join(QStringLiteral("\n  ")));
    out += QStringLiteral("メインウィンドウ: %1\n")
               .arg(r.windowSteps.isEmpty() ? QStringLiteral("変化なし")
                                            : r.windowSteps.join(QStringLiteral(" → ")));
    out += QStringLiteral("後片付けの確認:\n");
    out += r.workDirLeft.isEmpty() ? QStringLiteral("[OK] TORVBOOT は空です\n")
                                   : QStringLiteral("[NG] TORVBOOT に残っています: %1\n")
                                         .arg(r.workDirLeft.join(QStringLiteral(", ")));
    out += r.notRestored.isEmpty()
               ? QStringLiteral(
                     "[OK] Emulator のディレクトリ・スナップショット・イメージは元のとおりです"
                     "（%1 ファイルをバイト単位で比較）\n")
                     .arg(r.comparedFiles)
               : QStringLiteral("[NG] 元に戻っていません:\n  %1\n")
                     .arg(r.notRestored.join(QStringLiteral("\n  ")));
    for (const QString& path : r.keptConfigs)
        out += QStringLiteral("[--] %1 は元々なかったため、起動で書かれたものが残ります"
                              "（通常の起動と同じ）\n")
                   .arg(path);
    return out;
}

} // namespace tv
