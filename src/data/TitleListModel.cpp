#include "data/TitleListModel.h"

#include "data/ByteCodec.h"
#include "data/Cfg.h"
#include "data/clsLst.h"
#include "util/Globals.h"
#include "util/SubFunction.h"

#include <QFile>
#include <QGuiApplication>
#include <QHash>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>
#include <QPixmap>
#include <algorithm>
#include <numeric>

namespace tv {

namespace {

QBrush QApplicationPalette(QPalette::ColorRole role)
{
    return QGuiApplication::palette().brush(QPalette::Active, role);
}

} // namespace

int SortColumnOfKey(int key)
{
    return key / 2 - 1;
}

bool SortKeyDescending(int key)
{
    return key % 2 == 1;
}

int ColumnClickKey(int column, int currentKey)
{
    const int ascending = 2 * column;
    return currentKey == ascending ? ascending + 1 : ascending;
}

QString MakeListKey(const QString& prefix, int32_t seekPointer)
{
    return prefix + QString::number(seekPointer);
}

int32_t SeekOfListKey(const QString& key)
{
    if (key.size() < 2)
        return 0;
    bool ok = false;
    const int32_t v = key.mid(1).toInt(&ok);
    return ok ? v : 0;
}

int32_t RecordNumberOfSeek(int32_t seekPointer, int recordLength)
{
    if (recordLength <= 0)
        return 0;
    return (seekPointer - 25) / recordLength + 1;
}

QString ListWindowCaption(int count)
{
    return QStringLiteral("TORVANE　- Torvane for PC8801mk2SR on MS Windows -") +
           QStringLiteral(" ( ") + QString::number(count) + QStringLiteral(" Images )");
}

QString ListCountText(int32_t count, int32_t total)
{
    return QString::number(count) + QStringLiteral(" 件 ／ ") + QString::number(total) +
           QStringLiteral(" 件");
}

QString DefaultColumnCaption(int column)
{
    static const char* captions[kListColumns] = {"Title",    "Genre",    "Maker",
                                                 "Column 1", "Column 2", "Sale Date"};
    return column >= 0 && column < kListColumns ? QString::fromLatin1(captions[column]) : QString();
}

TitleListModel::TitleListModel(QObject* parent) : QAbstractTableModel(parent)
{
    for (int c = 0; c < kListColumns; ++c)
        captions_[size_t(c)] = DefaultColumnCaption(c);
}

int TitleListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(rows_.size());
}

int TitleListModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : kListColumns;
}

QVariant TitleListModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= int(rows_.size()))
        return {};
    const Row& r = rows_[size_t(index.row())];
    switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole:
        if (role == Qt::ToolTipRole && index.column() != 0)
            return {};
        return r.text[size_t(index.column())];
    case Qt::DecorationRole:
        if (index.column() == 0) {
            const QIcon icon = iconFor(r.ext);
            if (!icon.isNull())
                return icon;
        }
        return {};
    case Qt::BackgroundRole:
    case Qt::ForegroundRole:
        // The drop highlight takes the colours of a selection without being one.
        if (index.row() == dropHighlight_)
            return QApplicationPalette(role == Qt::BackgroundRole ? QPalette::Highlight
                                                                  : QPalette::HighlightedText);
        return {};
    case KeyRole:
        return r.key;
    case SeekRole:
        return SeekOfListKey(r.key);
    case ExtRole:
        return r.ext;
    default:
        return {};
    }
}

QVariant TitleListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Horizontal && role == Qt::DisplayRole && section >= 0 &&
        section < kListColumns)
        return captions_[size_t(section)];
    return QAbstractTableModel::headerData(section, orientation, role);
}

void TitleListModel::setColumnCaption(int column, const QString& caption)
{
    if (column < 0 || column >= kListColumns)
        return;
    captions_[size_t(column)] = caption;
    emit headerDataChanged(Qt::Horizontal, column, column);
}

QString TitleListModel::columnCaption(int column) const
{
    return column >= 0 && column < kListColumns ? captions_[size_t(column)] : QString();
}

void TitleListModel::clear()
{
    beginResetModel();
    rows_.clear();
    rows_.shrink_to_fit();
    endResetModel();
}

void TitleListModel::AddListRow(int32_t seekPointer)
{
    Row r;
    r.text = {LstObj.GetTitle(),   LstObj.GetGenre(),   LstObj.GetMaker(),
              LstObj.GetColumn1(), LstObj.GetColumn2(), LstObj.GetSaleDate()};
    r.key = MakeListKey(KeyPrefix, seekPointer);
    r.ext = GetFileExt(LstObj.GetStartFileName());
    addRow(std::move(r));
}

void TitleListModel::addRow(Row row)
{
    if (filling_) {
        rows_.push_back(std::move(row));
        return;
    }
    const int n = int(rows_.size());
    beginInsertRows(QModelIndex(), n, n);
    rows_.push_back(std::move(row));
    endInsertRows();
}

void TitleListModel::beginFill()
{
    filling_ = true;
    fillStart_ = int(rows_.size());
}

void TitleListModel::endFill()
{
    if (!filling_)
        return;
    filling_ = false;
    // One reset is far cheaper for a view than tens of thousands of single inserts.
    beginResetModel();
    endResetModel();
}

bool TitleListModel::removeListRow(int r)
{
    if (r < 0 || r >= int(rows_.size()))
        return false;
    beginRemoveRows(QModelIndex(), r, r);
    rows_.erase(rows_.begin() + r);
    endRemoveRows();
    if (dropHighlight_ >= int(rows_.size()))
        dropHighlight_ = -1;
    return true;
}

void TitleListModel::rekeyRows(const std::function<QString(const QString&)>& rekey)
{
    for (Row& row : rows_)
        row.key = rekey(row.key);
    if (!rows_.empty())
        emit dataChanged(index(0, 0), index(int(rows_.size()) - 1, kListColumns - 1),
                         {KeyRole, SeekRole});
}

void TitleListModel::setDropHighlight(int r)
{
    if (r < -1 || r >= int(rows_.size()) || r == dropHighlight_)
        return;
    const int old = dropHighlight_;
    dropHighlight_ = r;
    for (int x : {old, r})
        if (x >= 0)
            emit dataChanged(index(x, 0), index(x, kListColumns - 1),
                             {Qt::BackgroundRole, Qt::ForegroundRole});
}

int TitleListModel::rowOfSeek(int32_t seekPointer) const
{
    for (size_t i = 0; i < rows_.size(); ++i)
        if (SeekOfListKey(rows_[i].key) == seekPointer)
            return int(i);
    return -1;
}

bool TitleListModel::updateRow(int r)
{
    if (r < 0 || r >= int(rows_.size()))
        return false;
    Row& row = rows_[size_t(r)];
    row.text = {LstObj.GetTitle(),   LstObj.GetGenre(),   LstObj.GetMaker(),
                LstObj.GetColumn1(), LstObj.GetColumn2(), LstObj.GetSaleDate()};
    row.ext = GetFileExt(LstObj.GetStartFileName());
    emit dataChanged(index(r, 0), index(r, kListColumns - 1));
    return true;
}

namespace {

template <typename Less> void stableOrder(std::vector<int>& order, Less less)
{
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(), less);
}

} // namespace

void TitleListModel::sortByColumn(int column, bool descending)
{
    if (column < 0 || column >= kListColumns)
        return;
    const size_t n = rows_.size();
    // Case-folded once per row, so that each comparison is a plain one.
    std::vector<QString> folded(n);
    for (size_t i = 0; i < n; ++i)
        folded[i] = rows_[i].text[size_t(column)].toCaseFolded();
    std::vector<int> order(n);
    if (descending)
        stableOrder(order, [&](int a, int b) { return folded[size_t(b)] < folded[size_t(a)]; });
    else
        stableOrder(order, [&](int a, int b) { return folded[size_t(a)] < folded[size_t(b)]; });

    applyOrder(order);
}

// Puts the rows in `order` (old row numbers in their new sequence), keeping the views'
// selection and current row on the same titles.
void TitleListModel::applyOrder(const std::vector<int>& order)
{
    const size_t n = order.size();
    emit layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
    std::vector<int> newPos(n);
    for (size_t i = 0; i < n; ++i)
        newPos[size_t(order[i])] = int(i);
    std::vector<Row> sorted;
    sorted.reserve(n);
    for (size_t i = 0; i < n; ++i)
        sorted.push_back(std::move(rows_[size_t(order[i])]));
    rows_.swap(sorted);
    const QModelIndexList from = persistentIndexList();
    QModelIndexList to;
    to.reserve(from.size());
    for (const QModelIndex& p : from)
        to.append(index(newPos[size_t(p.row())], p.column()));
    changePersistentIndexList(from, to);
    emit layoutChanged({}, QAbstractItemModel::VerticalSortHint);
}

void TitleListModel::sortBySeek(bool descending)
{
    const size_t n = rows_.size();
    std::vector<int32_t> seek(n);
    for (size_t i = 0; i < n; ++i)
        seek[i] = SeekOfListKey(rows_[i].key);
    std::vector<int> order(n);
    if (descending)
        stableOrder(order, [&](int a, int b) { return seek[size_t(b)] < seek[size_t(a)]; });
    else
        stableOrder(order, [&](int a, int b) { return seek[size_t(a)] < seek[size_t(b)]; });
    applyOrder(order);
}

void TitleListModel::applySortKey(int key)
{
    if (key <= 1)
        sortBySeek(key == 1);
    else if (key <= kMaxSortKey)
        sortByColumn(SortColumnOfKey(key), SortKeyDescending(key));
}

// --- Fill ------------------------------------------------------------------------------

bool WriteNewCatalogue(int family)
{
    QByteArray head;
    ByteWriter w(head);
    w.raw(
        (LstFileName(family) + QStringLiteral(" Version ") + LstObj.GetLstVersion(uint8_t(family)))
            .toLatin1(),
        kLstHeaderSize, ' ');
    QFile f(LstFilePath(family));
    if (!f.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return false;
    return f.write(head) == head.size();
}

LoadListOutcome FillTitleList(TitleListModel& model, uint8_t family,
                              const std::function<void(int32_t, int32_t)>& progress)
{
    LoadListOutcome out;
    model.clear();
    if (family >= kLstFamilyCount) {
        out.status = LoadListStatus::BadFamily;
        return out;
    }
    bool created = false;
    if (!QFile::exists(LstFilePath(family))) {
        WriteNewCatalogue(family);
        created = true;
    }
    if (!LstObj.InitLst(family)) {
        out.status = LoadListStatus::BadVersion;
        return out;
    }
    if (created) {
        out.status = LoadListStatus::Created;
        return out;
    }
    const int32_t total = LstObj.GetLstMaxCnt();
    const int len = LstObj.GetLstLength();
    if (progress)
        progress(0, total);
    model.beginFill();
    for (;;) {
        const int32_t sp = LstObj.NextLoad();
        if (sp == 0)
            break;
        if (progress)
            progress(LstObj.GetLstSeekCnt() - 1, total);
        model.AddListRow(sp);
        if (Cfg.LstSelectSave == 1 && sp == Cfg.LstSelectPos)
            out.notedRow = RecordNumberOfSeek(sp, len) - 1;
    }
    model.endFill();
    out.status = LoadListStatus::Loaded;
    return out;
}

// --- Row icons -------------------------------------------------------------------------

namespace {

enum class Shape { Floppy, Tape };

struct IconStyle {
    const char* ext;
    Shape shape;
    QColor colour;
};

const IconStyle kIconStyles[] = {
    {"D88", Shape::Floppy, QColor(40, 90, 170)}, {"D77", Shape::Floppy, QColor(170, 50, 50)},
    {"2D", Shape::Floppy, QColor(60, 130, 60)},  {"VFD", Shape::Floppy, QColor(120, 70, 150)},
    {"T88", Shape::Tape, QColor(40, 90, 170)},   {"CMT", Shape::Tape, QColor(90, 90, 90)},
    {"N80", Shape::Tape, QColor(200, 120, 20)},  {"T77", Shape::Tape, QColor(170, 50, 50)},
    {"VTP", Shape::Tape, QColor(120, 70, 150)},  {"TAP", Shape::Tape, QColor(60, 130, 60)},
};

QPixmap drawIcon(const IconStyle& s, int size)
{
    QPixmap pm(size, size);
    pm.fill(Qt::transparent);
    QPainter p(&pm);
    p.setRenderHint(QPainter::Antialiasing);
    const qreal u = size / 16.0;
    if (s.shape == Shape::Floppy) {
        // A disk: body, metal shutter, label.
        QPainterPath body;
        body.moveTo(1 * u, 1 * u);
        body.lineTo(13 * u, 1 * u);
        body.lineTo(15 * u, 3 * u);
        body.lineTo(15 * u, 15 * u);
        body.lineTo(1 * u, 15 * u);
        body.closeSubpath();
        p.setPen(QPen(s.colour.darker(160), std::max(1.0, u * 0.8)));
        p.setBrush(s.colour);
        p.drawPath(body);
        p.setPen(Qt::NoPen);
        p.setBrush(QColor(200, 200, 205));
        p.drawRect(QRectF(4 * u, 1.5 * u, 7 * u, 4.5 * u));
        p.setBrush(s.colour.darker(150));
        p.drawRect(QRectF(8 * u, 2.2 * u, 2 * u, 3 * u));
        p.setBrush(QColor(250, 250, 245));
        p.drawRect(QRectF(3 * u, 8 * u, 10 * u, 6 * u));
        p.setPen(QColor(30, 30, 30));
    } else {
        // A cassette: case, window with two reels.
        p.setPen(QPen(s.colour.darker(160), std::max(1.0, u * 0.8)));
        p.setBrush(s.colour);
        p.drawRoundedRect(QRectF(0.5 * u, 3 * u, 15 * u, 11 * u), 1.5 * u, 1.5 * u);
        p.setPen(Qt::NoPen);
        p.setBrush(QColor(250, 250, 245));
        p.drawRect(QRectF(2.5 * u, 4.5 * u, 11 * u, 5 * u));
        p.setBrush(QColor(40, 40, 40));
        p.drawEllipse(QPointF(5.5 * u, 7 * u), 1.6 * u, 1.6 * u);
        p.drawEllipse(QPointF(10.5 * u, 7 * u), 1.6 * u, 1.6 * u);
        p.setPen(QColor(250, 250, 245));
    }
    // The extension's first letters, only where there is room for them.
    if (size >= 24) {
        QFont f;
        f.setPixelSize(int(4 * u));
        f.setBold(true);
        p.setFont(f);
        const QRectF label = s.shape == Shape::Floppy ? QRectF(3 * u, 8 * u, 10 * u, 6 * u)
                                                      : QRectF(1 * u, 9.5 * u, 14 * u, 4.5 * u);
        p.drawText(label, Qt::AlignCenter, QString::fromLatin1(s.ext));
    }
    return pm;
}

} // namespace

QIcon TitleListModel::iconFor(const QString& ext)
{
    static QHash<QString, QIcon> cache;
    static bool built = false;
    if (!built) {
        built = true;
        for (const IconStyle& s : kIconStyles) {
            QIcon icon;
            icon.addPixmap(drawIcon(s, 16));
            icon.addPixmap(drawIcon(s, 32));
            cache.insert(QString::fromLatin1(s.ext), icon);
        }
    }
    return cache.value(ext);
}

} // namespace tv
