// The configuration record and its three option blocks, member by member against the layout
// tables: every member gets a value of its own, and the bytes are read back at the table's
// offsets; a record built byte by byte is read into the right members; the defaults stand at
// their offsets.
#include "adapters/fm7x1/EmuOptFMX1.h"
#include "adapters/pc88/EmuOpt88.h"
#include "data/ByteCodec.h"
#include "data/Cfg.h"
#include "util/Sjis.h"
#include "util/SubFunction.h"

#include "support/RawBytes.h"

#include <gtest/gtest.h>

#include <bit>
#include <functional>
#include <vector>

using namespace tv;

namespace {

using tvtest::f32at;
using tvtest::i16at;
using tvtest::i32at;
using tvtest::u8at;

void put16(QByteArray& b, int off, int16_t v)
{
    b[off] = static_cast<char>(v & 0xFF);
    b[off + 1] = static_cast<char>((static_cast<uint16_t>(v) >> 8) & 0xFF);
}
void put32(QByteArray& b, int off, int32_t v)
{
    for (int i = 0; i < 4; ++i)
        b[off + i] = static_cast<char>((static_cast<uint32_t>(v) >> (8 * i)) & 0xFF);
}
void putText(QByteArray& b, int off, int width, const QByteArray& sjis)
{
    QByteArray f = sjis.left(width);
    f.append(QByteArray(width - f.size(), ' '));
    b.replace(off, width, f);
}
QByteArray field(const QString& t, int width)
{
    QByteArray f = ToSjis(t).left(width);
    return f + QByteArray(width - f.size(), ' ');
}

using R = CfgRecord;

// The one-byte fields of the record, offsets 24 to 75, in the table's order.
struct ByteField {
    int offset;
    uint8_t R::*member;
};
const ByteField kByteFields[] = {
    {24, &R::LastHardWare},   {25, &R::P88srUse},        {26, &R::M88Use},
    {27, &R::PC88WinUse},     {28, &R::X88kUse},         {29, &R::QUASI88Use},
    {30, &R::J80Use},         {31, &R::Xm7DosUse},       {32, &R::Xm7WinUse},
    {33, &R::Em7WinUse},      {34, &R::X1rUse},          {35, &R::XmilUse},
    {36, &R::XmilTUse},       {37, &R::X1emuUse},        {38, &R::WinX1Use},
    {39, &R::WinX1IkaUse},    {40, &R::P88CfgChk},       {41, &R::M88CfgChk},
    {42, &R::Pc8CfgChk},      {43, &R::X88CfgChk},       {44, &R::Q88CfgChk},
    {45, &R::J80CfgChk},      {46, &R::Reserved46},      {47, &R::Xm7WinCfgChk},
    {48, &R::Em7WinCfgChk},   {49, &R::X1rCfgChk},       {50, &R::XmilCfgChk},
    {51, &R::X1emuCfgChk},    {52, &R::WinX1CfgChk},     {53, &R::M88AllScr},
    {54, &R::Pc8AllScr},      {55, &R::X88AllScr},       {56, &R::Q88AllScr},
    {57, &R::J80AllScr},      {58, &R::Xm7WinAllScr},    {59, &R::Em7WinAllScr},
    {60, &R::XmilAllScr},     {61, &R::WinX1AllScr},     {62, &R::Q88CompatRomUse},
    {63, &R::ScrAutoRead},    {64, &R::ScrSearchRead},   {65, &R::WinChangeFlag},
    {66, &R::WinState},       {67, &R::WinAppearance},   {68, &R::LstSelectSave},
    {69, &R::TxtIn},          {70, &R::TxtInConv},       {71, &R::ArcSerch},
    {72, &R::TaskIn},         {73, &R::TaskRunForm},     {74, &R::DefScrFlag},
    {75, &R::ColNonMakeFlag}, {11204, &R::DefOpt},       {11205, &R::PanUse},
    {11206, &R::PatUse},      {11207, &R::ViewScrCom},   {11208, &R::ViewGrid},
    {11209, &R::SortKey},     {11210, &R::DblClickProc}, {11211, &R::ReArcCheck},
};

// The text fields: offset, width, the member.
struct TextField {
    int offset;
    int width;
    std::function<QString&(R&)> member;
};
std::vector<TextField> TextFields()
{
    std::vector<TextField> t;
    t.push_back({0, 24, [](R& c) -> QString& { return c.CfgVersion; }});
    for (int i = 0; i < 3; ++i) {
        t.push_back({78 + 256 * i, 256, [i](R& c) -> QString& { return c.ImageDir[i]; }});
        t.push_back({846 + 256 * i, 256, [i](R& c) -> QString& { return c.SnapDir[i]; }});
        t.push_back({1614 + 256 * i, 256, [i](R& c) -> QString& { return c.ManDir[i]; }});
        t.push_back({2382 + 256 * i, 256, [i](R& c) -> QString& { return c.PatSaveDir[i]; }});
    }
    const std::pair<int, QString R::*> paths[] = {
        {3150, &R::P88srDir},      {3406, &R::M88Dir},         {3662, &R::PC88WinDir},
        {3918, &R::X88kDir},       {4174, &R::QUASI88Dir},     {4430, &R::J80Dir},
        {4686, &R::Xm7DosDir},     {4942, &R::Xm7WinDir},      {5198, &R::Em7WinDir},
        {5454, &R::X1rDir},        {5710, &R::XmilDir},        {5966, &R::XmilTDir},
        {6222, &R::X1emuDir},      {6478, &R::WinX1Dir},       {6734, &R::P88SaveDir},
        {6990, &R::M88SaveDir},    {7246, &R::QUASI88SaveDir}, {7502, &R::Xm7DosSaveDir},
        {7758, &R::Xm7WinSaveDir}, {8014, &R::XmilSaveDir},    {8270, &R::WinX1SaveDir},
        {8526, &R::J80RomsFile},   {8782, &R::J80Rom4File},    {9038, &R::J80FontFile},
        {9294, &R::J80DiskFile},   {9550, &R::J80CrtFile},     {9806, &R::J80KeyFile},
        {10062, &R::J80PenDir},    {10318, &R::FmPanFile},     {10574, &R::JavaVMPath},
        {10830, &R::DefScrPath},
    };
    for (auto [off, m] : paths)
        t.push_back({off, 256, [m](R& c) -> QString& { return c.*m; }});
    const std::pair<int, QString R::*> addresses[] = {{11086, &R::J80RomsAddress},
                                                      {11094, &R::J80Rom4Address},
                                                      {11102, &R::J80FontAddress},
                                                      {11110, &R::J80DiskAddress}};
    for (auto [off, m] : addresses)
        t.push_back({off, 8, [m](R& c) -> QString& { return c.*m; }});
    t.push_back({11118, 20, [](R& c) -> QString& { return c.FreeColName1; }});
    t.push_back({11138, 20, [](R& c) -> QString& { return c.FreeColName2; }});
    return t;
}

// A text of its own for each field, short enough for the narrowest (8 bytes).
QString TextFor(int offset)
{
    return QStringLiteral("T%1").arg(offset);
}

} // namespace

TEST(CfgLayout, EveryMemberStandsAtItsTableOffset)
{
    CfgRecord c;
    ClearCfg(c);
    for (const auto& f : kByteFields)
        c.*f.member = static_cast<uint8_t>(f.offset * 7 + 3);
    c.Reserved76 = {0xA1, 0xA2};
    for (auto& f : TextFields())
        f.member(c) = TextFor(f.offset);
    c.WinSendWait = -12345;
    c.ColWidth = {101.5f, 202.5f, 303.5f, 404.5f, 505.5f, 606.5f};
    c.WinWidth = 7001.25f;
    c.WinHeight = 7002.25f;
    c.WinLeft = -7003.25f;
    c.WinTop = 7004.25f;
    c.LstSelectPos = -123456789;
    for (int row = 0; row < 20; ++row)
        for (int col = 0; col < 6; ++col)
            c.FilterOrder[row][col] = static_cast<uint8_t>(row * 6 + col + 1);
    c.CfgEmuOpt88.DefEmuRun = 0xB1;
    c.CfgEmuOpt88.J80_2Op[2] = 0x7B7A;
    c.CfgEmuOptFM.DefEmuRun = 0xB2;
    c.CfgEmuOptFM.Em7Win_2Op[2] = 0x6B6A;
    c.CfgEmuOptX1.DefEmuRun = 0xB3;
    c.CfgEmuOptX1.WinX1_1Op[23] = 0xC9;

    const QByteArray b = EncodeCfg(c);
    ASSERT_EQ(b.size(), kCfgSize);
    for (const auto& f : kByteFields)
        EXPECT_EQ(u8at(b, f.offset), static_cast<uint8_t>(f.offset * 7 + 3)) << f.offset;
    EXPECT_EQ(u8at(b, 76), 0xA1);
    EXPECT_EQ(u8at(b, 77), 0xA2);
    for (const auto& f : TextFields())
        EXPECT_EQ(b.mid(f.offset, f.width), field(TextFor(f.offset), f.width)) << f.offset;
    EXPECT_EQ(i16at(b, 11158), -12345);
    for (int i = 0; i < 6; ++i)
        EXPECT_EQ(f32at(b, 11160 + 4 * i), c.ColWidth[i]) << i;
    EXPECT_EQ(f32at(b, 11184), 7001.25f);
    EXPECT_EQ(f32at(b, 11188), 7002.25f);
    EXPECT_EQ(f32at(b, 11192), -7003.25f);
    EXPECT_EQ(f32at(b, 11196), 7004.25f);
    EXPECT_EQ(i32at(b, 11200), -123456789);
    for (int row = 0; row < 20; ++row)
        for (int col = 0; col < 6; ++col)
            EXPECT_EQ(u8at(b, 11212 + row * 6 + col), row * 6 + col + 1) << row << "," << col;
    // The three blocks: their first and last members at the record's offsets.
    EXPECT_EQ(u8at(b, 11332), 0xB1);
    EXPECT_EQ(i16at(b, 11332 + 445), 0x7B7A);
    EXPECT_EQ(u8at(b, 11779), 0xB2);
    EXPECT_EQ(i16at(b, 11779 + 204), 0x6B6A);
    EXPECT_EQ(u8at(b, 11985), 0xB3);
    EXPECT_EQ(u8at(b, 12123), 0xC9);
}

TEST(CfgLayout, RecordBuiltByteByByteIsReadIntoTheRightMembers)
{
    // Built here, not by the writer: a file as another program would have written it.
    QByteArray b(kCfgSize, '\0');
    for (const auto& f : kByteFields)
        b[f.offset] = static_cast<char>(f.offset * 5 + 1);
    b[76] = '\x11';
    b[77] = '\x12';
    const QByteArray game = ToSjis(QStringLiteral("/ゲーム/ﾃｽﾄ"));
    for (const auto& f : TextFields())
        putText(b, f.offset, f.width, ToSjis(TextFor(f.offset)));
    putText(b, 334, 256, game);
    put16(b, 11158, 1500);
    const float widths[6] = {11.0f, 22.5f, 33.25f, 44.0f, 55.5f, 66.75f};
    for (int i = 0; i < 6; ++i)
        put32(b, 11160 + 4 * i, static_cast<int32_t>(std::bit_cast<uint32_t>(widths[i])));
    put32(b, 11184, static_cast<int32_t>(std::bit_cast<uint32_t>(800.0f)));
    put32(b, 11188, static_cast<int32_t>(std::bit_cast<uint32_t>(600.0f)));
    put32(b, 11192, static_cast<int32_t>(std::bit_cast<uint32_t>(-15.0f)));
    put32(b, 11196, static_cast<int32_t>(std::bit_cast<uint32_t>(30.0f)));
    put32(b, 11200, 70001);
    for (int i = 0; i < 120; ++i)
        b[11212 + i] = static_cast<char>(200 - i);
    for (int i = 0; i < kEmuOpt88Size; ++i)
        b[11332 + i] = static_cast<char>(i * 3 + 1);
    for (int i = 0; i < kEmuOptFMSize; ++i)
        b[11779 + i] = static_cast<char>(i * 5 + 2);
    for (int i = 0; i < kEmuOptX1Size; ++i)
        b[11985 + i] = static_cast<char>(i * 7 + 3);

    CfgRecord c;
    ClearCfg(c);
    DecodeCfg(b, c);
    for (const auto& f : kByteFields)
        EXPECT_EQ(c.*f.member, static_cast<uint8_t>(f.offset * 5 + 1)) << f.offset;
    EXPECT_EQ(c.Reserved76[0], 0x11);
    EXPECT_EQ(c.Reserved76[1], 0x12);
    for (auto& f : TextFields()) {
        if (f.offset == 334)
            continue;
        EXPECT_EQ(f.member(c), FromSjis(field(TextFor(f.offset), f.width))) << f.offset;
    }
    EXPECT_EQ(VbTrim(c.ImageDir[1]), QStringLiteral("/ゲーム/ﾃｽﾄ"));
    EXPECT_EQ(c.WinSendWait, 1500);
    for (int i = 0; i < 6; ++i)
        EXPECT_EQ(c.ColWidth[i], widths[i]);
    EXPECT_EQ(c.WinWidth, 800.0f);
    EXPECT_EQ(c.WinHeight, 600.0f);
    EXPECT_EQ(c.WinLeft, -15.0f);
    EXPECT_EQ(c.WinTop, 30.0f);
    EXPECT_EQ(c.LstSelectPos, 70001);
    for (int row = 0; row < 20; ++row)
        for (int col = 0; col < 6; ++col)
            EXPECT_EQ(c.FilterOrder[row][col], 200 - (row * 6 + col));
    EXPECT_EQ(c.CfgEmuOpt88.DefEmuRun, 1);
    EXPECT_EQ(c.CfgEmuOpt88.J80_2Op[2],
              static_cast<int16_t>(u8at(b, 11332 + 445) | (u8at(b, 11332 + 446) << 8)));
    EXPECT_EQ(c.CfgEmuOptFM.DefEmuRun, 2);
    EXPECT_EQ(c.CfgEmuOptX1.DefEmuRun, 3);
    EXPECT_EQ(c.CfgEmuOptX1.WinX1_1Op[23], static_cast<uint8_t>(138 * 7 + 3));
    // Written again, the record is the same bytes.
    EXPECT_EQ(EncodeCfg(c), b);
}
