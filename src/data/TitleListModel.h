#pragma once
// The rows of the title list: six display texts and a key per row, nothing else of the
// record. The key is KeyPrefix followed by the record's seek pointer; it is the only link
// between a row and its record and survives any sort, since sorting moves rows, not records.
#include <QAbstractTableModel>
#include <QIcon>
#include <QString>
#include <array>
#include <cstdint>
#include <functional>
#include <vector>

namespace tv {

inline constexpr int kListColumns = 6;
// The highest sort key: 0/1 file order, then ascending/descending per column.
inline constexpr int kMaxSortKey = 13;

// Column (0-based) that a sort key of 2 or more sorts by: key / 2 - 1.
int SortColumnOfKey(int key);
bool SortKeyDescending(int key);
// A click on column n (1..6): 2n, or 2n + 1 when 2n is already in force.
int ColumnClickKey(int column, int currentKey);
QString MakeListKey(const QString& prefix, int32_t seekPointer);
// The number behind the key's first character; 0 when there is none.
int32_t SeekOfListKey(const QString& key);
// The 1-based number of the record at a seek pointer.
int32_t RecordNumberOfSeek(int32_t seekPointer, int recordLength);
// "TORVANE　- Torvane for PC8801mk2SR on MS Windows - ( n Images )"
QString ListWindowCaption(int count);
// The status or splash counter: "n 件 ／ total 件".
QString ListCountText(int32_t count, int32_t total);

// The design-time captions of the six columns.
QString DefaultColumnCaption(int column);

class TitleListModel : public QAbstractTableModel {
    Q_OBJECT
public:
    enum Role { KeyRole = Qt::UserRole + 1, SeekRole, ExtRole };

    struct Row {
        std::array<QString, kListColumns> text;
        QString key;
        QString ext; // of the start file, the icon key
    };

    explicit TitleListModel(QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

    void setColumnCaption(int column, const QString& caption);
    QString columnCaption(int column) const;

    void clear();
    // Adds the record now in the working copy of LstObj, with the key of `seekPointer`.
    void AddListRow(int32_t seekPointer);
    void addRow(Row row);
    // Bulk fill: rows added between these two are announced once, as a reset.
    void beginFill();
    void endFill();

    const Row& row(int r) const { return rows_[size_t(r)]; }
    QString key(int r) const { return rows_[size_t(r)].key; }
    int32_t seekPointer(int r) const { return SeekOfListKey(rows_[size_t(r)].key); }
    // The row whose key holds `seekPointer`, or -1.
    int rowOfSeek(int32_t seekPointer) const;
    // Replaces the texts of the row of `seekPointer` from the working copy of LstObj.
    bool updateRow(int r);
    // Takes one row out; false for a row that isn't there.
    bool removeListRow(int r);
    // Gives every row the key `rekey` makes of its old one, announced once for all rows.
    void rekeyRows(const std::function<QString(const QString&)>& rekey);
    // The row shown as the drop highlight of the tracking selection; -1 for none.
    void setDropHighlight(int r);
    int dropHighlight() const { return dropHighlight_; }

    // Sorts once by the text of a column, case-insensitively; rows added later stay at the end.
    void sortByColumn(int column, bool descending);
    // File order, ascending or descending, by seek pointer.
    void sortBySeek(bool descending);
    // The order a sort key stands for.
    void applySortKey(int key);

    // The icon for an extension; null for unknown keys, and the row stays without icon.
    static QIcon iconFor(const QString& ext);

private:
    void applyOrder(const std::vector<int>& order);
    std::vector<Row> rows_;
    std::array<QString, kListColumns> captions_;
    bool filling_ = false;
    int fillStart_ = 0;
    int dropHighlight_ = -1;
};

enum class LoadListStatus { Loaded, Created, BadFamily, BadVersion };
struct LoadListOutcome {
    LoadListStatus status = LoadListStatus::BadFamily;
    // 0-based row of the remembered record (LstSelectSave, LstSelectPos), or -1.
    int notedRow = -1;
};

// Writes a catalogue that holds only the 24-byte header.
bool WriteNewCatalogue(int family);

// The file part of LoadList: clears the rows; a family without a file gets a header-only
// file (Created); InitLst; then every record in file order as a row. `progress` gets the
// count before the first row (0) and before each row, and the total.
LoadListOutcome FillTitleList(TitleListModel& model, uint8_t family,
                              const std::function<void(int32_t, int32_t)>& progress);

} // namespace tv
