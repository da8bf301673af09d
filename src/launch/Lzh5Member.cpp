#include "launch/Lzh5Member.h"

#include "data/ByteCodec.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <limits>
#include <vector>

namespace tv {

namespace {

// The constants of -lh5-: 8 KiB dictionary, matches of 3..256 bytes.
constexpr int kDicBits = 13;
constexpr int kWindow = 1 << kDicBits;
constexpr int kMinMatch = 3;
constexpr int kMaxMatch = 256;
// Character/length alphabet: 256 bytes and the lengths 3..256.
constexpr int kNC = 256 + kMaxMatch - kMinMatch + 1;
constexpr int kCBits = 9;
// Pre-tree over the character/length code lengths: 0..2 run codes, 3..18 lengths 1..16.
constexpr int kNT = 16 + 3;
constexpr int kTBits = 5;
// Position tree: bit length of the offset, 0..13.
constexpr int kNP = kDicBits + 1;
constexpr int kPBits = 4;
constexpr int kMaxCodeBits = 16;
// The block size field has 16 bits.
constexpr int kMaxBlockCodes = 0xFFFF;
constexpr uint64_t kMinBlockBits = 64;

// ---------------------------------------------------------------------------------------------
// CRC-16

constexpr std::array<uint16_t, 256> makeCrcTable()
{
    std::array<uint16_t, 256> t{};
    for (unsigned i = 0; i < 256; ++i) {
        unsigned r = i;
        for (int k = 0; k < 8; ++k)
            r = (r & 1) ? (r >> 1) ^ 0xA001 : r >> 1;
        t[i] = static_cast<uint16_t>(r);
    }
    return t;
}
constexpr std::array<uint16_t, 256> kCrcTable = makeCrcTable();

// ---------------------------------------------------------------------------------------------
// Bits, most significant first, as the format reads them.

class BitWriter {
public:
    explicit BitWriter(QByteArray& out) : out_(out) {}
    void put(int n, uint32_t v)
    {
        if (n == 0)
            return;
        acc_ = (acc_ << n) | (v & ((1u << n) - 1));
        bits_ += n;
        if (bits_ >= 32) {
            bits_ -= 32;
            const uint32_t w = static_cast<uint32_t>(acc_ >> bits_);
            const char b[4] = {char(w >> 24), char(w >> 16), char(w >> 8), char(w)};
            out_.append(b, 4);
        }
    }
    // Pads the last byte with zero bits.
    void flush()
    {
        while (bits_ >= 8) {
            bits_ -= 8;
            out_.append(char(acc_ >> bits_));
        }
        if (bits_ > 0) {
            out_.append(char(acc_ << (8 - bits_)));
            bits_ = 0;
        }
    }

private:
    QByteArray& out_;
    uint64_t acc_ = 0;
    int bits_ = 0;
};

// ---------------------------------------------------------------------------------------------
// Huffman codes

// Code lengths of an optimal prefix code over `freq`, no longer than kMaxCodeBits. Returns the
// number of symbols in use; with fewer than two every length stays 0 (the format then names the
// one symbol instead of a tree).
int huffLengths(const uint32_t* freq, int n, uint8_t* len)
{
    std::fill(len, len + n, 0);
    std::array<std::pair<uint32_t, int>, kNC> leaves;
    int m = 0;
    for (int s = 0; s < n; ++s)
        if (freq[s])
            leaves[m++] = {freq[s], s};
    if (m < 2)
        return m;
    std::sort(leaves.begin(), leaves.begin() + m);

    // Two queues: sorted leaves and internal nodes, which come out in rising weight.
    std::array<uint64_t, 2 * kNC> weight;
    std::array<int, 2 * kNC> parent;
    for (int i = 0; i < m; ++i)
        weight[i] = leaves[i].first;
    int li = 0, ii = m, next = m;
    auto pick = [&]() {
        if (li < m && (ii >= next || weight[li] <= weight[ii]))
            return li++;
        return ii++;
    };
    for (; next < 2 * m - 1; ++next) {
        const int a = pick();
        const int b = pick();
        weight[next] = weight[a] + weight[b];
        parent[a] = parent[b] = next;
    }
    std::array<int, 2 * kNC> depth;
    depth[2 * m - 2] = 0;
    for (int i = 2 * m - 3; i >= 0; --i)
        depth[i] = depth[parent[i]] + 1;

    std::array<int, kMaxCodeBits + 1> count{};
    bool over = false;
    for (int i = 0; i < m; ++i) {
        over = over || depth[i] > kMaxCodeBits;
        ++count[std::min(depth[i], kMaxCodeBits)];
    }
    if (over) {
        // Leaves pushed up to the limit make the code overfull; each step moves the deepest
        // shorter leaf one level down, taking a leaf of the limit as its sibling, which takes
        // one unit off the Kraft sum, until the code is complete again.
        uint32_t kraft = 0;
        for (int l = 1; l <= kMaxCodeBits; ++l)
            kraft += uint32_t(count[l]) << (kMaxCodeBits - l);
        while (kraft > (1u << kMaxCodeBits)) {
            --count[kMaxCodeBits];
            for (int l = kMaxCodeBits - 1; l > 0; --l) {
                if (count[l]) {
                    --count[l];
                    count[l + 1] += 2;
                    break;
                }
            }
            --kraft;
        }
    }
    // The rarest symbols take the longest codes.
    int idx = 0;
    for (int l = kMaxCodeBits; l > 0; --l)
        for (int c = 0; c < count[l]; ++c)
            len[leaves[idx++].second] = static_cast<uint8_t>(l);
    return m;
}

// Canonical codes: shorter codes first, within a length in symbol order.
void canonicalCodes(const uint8_t* len, int n, uint16_t* code)
{
    std::array<uint32_t, kMaxCodeBits + 2> count{}, start{};
    for (int s = 0; s < n; ++s)
        ++count[len[s]];
    count[0] = 0;
    for (int l = 1; l <= kMaxCodeBits; ++l)
        start[l + 1] = (start[l] + count[l]) << 1;
    for (int s = 0; s < n; ++s)
        code[s] = len[s] ? static_cast<uint16_t>(start[len[s]]++) : 0;
}

int trimmed(const uint8_t* len, int n)
{
    while (n > 0 && len[n - 1] == 0)
        --n;
    return n;
}

int bitLength(unsigned v)
{
    return v ? 32 - std::countl_zero(v) : 0;
}

// Walks the character/length code lengths as the pre-tree codes them: runs of zeros as codes
// 0..2 with extra bits, a length k as code k + 2. `visit(code, extraBits, extraValue)`.
template <typename Emit> void walkCLengths(const uint8_t* cLen, int n, Emit&& visit)
{
    int i = 0;
    while (i < n) {
        const int k = cLen[i++];
        if (k != 0) {
            visit(k + 2, 0, 0);
            continue;
        }
        int run = 1;
        while (i < n && cLen[i] == 0) {
            ++i;
            ++run;
        }
        if (run <= 2) {
            for (int j = 0; j < run; ++j)
                visit(0, 0, 0);
        } else if (run <= 18) {
            visit(1, 4, run - 3);
        } else if (run == 19) {
            visit(0, 0, 0);
            visit(1, 4, 15);
        } else {
            visit(2, kCBits, run - 20);
        }
    }
}

// Walks a pre-tree or position tree length table as written: the count of entries, each length
// in 3 bits (7 and more as a unary tail), and after entry `special` a 2-bit count of zeros.
template <typename Put>
void walkPtLengths(const uint8_t* len, int nAll, int nBits, int special, Put&& put)
{
    const int n = trimmed(len, nAll);
    put(nBits, n);
    int i = 0;
    while (i < n) {
        const int k = len[i++];
        if (k <= 6)
            put(3, k);
        else
            put(k - 3, (1u << (k - 3)) - 2);
        if (i == special) {
            const int from = i;
            while (i < 6 && len[i] == 0)
                ++i;
            put(2, i - from);
        }
    }
}

// A code of the parse: a byte (0..255) or a match (256 + length - 3) with its offset.
struct Code {
    uint16_t sym;
    uint16_t offset;
};

int positionSlot(unsigned offset)
{
    return bitLength(offset);
}

// The three trees of one block and its exact size in bits.
struct BlockPlan {
    std::array<uint32_t, kNC> cFreq{};
    std::array<uint32_t, kNP> pFreq{};
    std::array<uint8_t, kNC> cLen{};
    std::array<uint8_t, kNP> pLen{};
    std::array<uint8_t, kNT> tLen{};
    int pUsed = 0, pRoot = 0;
    int nc = 0; // entries of the character/length table that are sent
    uint32_t codes = 0;
    uint64_t bits = 0;

    void add(const Code* c, size_t n)
    {
        for (size_t i = 0; i < n; ++i) {
            ++cFreq[c[i].sym];
            if (c[i].sym >= 256)
                ++pFreq[positionSlot(c[i].offset)];
        }
        codes += static_cast<uint32_t>(n);
    }
    void add(const BlockPlan& o)
    {
        for (int s = 0; s < kNC; ++s)
            cFreq[s] += o.cFreq[s];
        for (int s = 0; s < kNP; ++s)
            pFreq[s] += o.pFreq[s];
        codes += o.codes;
    }

    static int onlySymbol(const uint32_t* f, int n)
    {
        for (int s = 0; s < n; ++s)
            if (f[s])
                return s;
        return 0;
    }

    // libarchive refuses the format's one-symbol form of the character and pre-trees, so a
    // tree of fewer than two symbols gets a second one of length 1 that is never sent.
    static void atLeastTwo(const uint32_t* f, uint8_t* len, int n, int used)
    {
        if (used >= 2)
            return;
        const int a = onlySymbol(f, n);
        len[a] = 1;
        len[a == 0 ? 1 : 0] = 1;
    }

    // Builds the trees and counts the block's bits.
    void plan()
    {
        atLeastTwo(cFreq.data(), cLen.data(), kNC, huffLengths(cFreq.data(), kNC, cLen.data()));
        pUsed = huffLengths(pFreq.data(), kNP, pLen.data());
        pRoot = pUsed >= 2 ? 0 : onlySymbol(pFreq.data(), kNP);
        // libarchive fails on a stream made only of blocks of 56 bits or less (a block of one
        // or two of the bytes 0..2). Trailing zero entries of the character/length table, which
        // are legal and read by all, bring such a block above that size.
        nc = trimmed(cLen.data(), kNC);
        planTables();
        while (bits < kMinBlockBits && nc < kNC) {
            ++nc;
            planTables();
        }
    }

    void planTables()
    {
        uint64_t b = 16;
        std::array<uint32_t, kNT> tFreq{};
        uint64_t walkBits = 0;
        walkCLengths(cLen.data(), nc, [&](int s, int eb, int) {
            ++tFreq[s];
            walkBits += eb;
        });
        atLeastTwo(tFreq.data(), tLen.data(), kNT, huffLengths(tFreq.data(), kNT, tLen.data()));
        walkPtLengths(tLen.data(), kNT, kTBits, 3, [&](int nb, unsigned) { b += nb; });
        b += kCBits + walkBits;
        for (int s = 0; s < kNT; ++s)
            b += uint64_t(tFreq[s]) * tLen[s];
        for (int s = 0; s < kNC; ++s)
            b += uint64_t(cFreq[s]) * cLen[s];
        // The position tree keeps the one-symbol form (which every reader takes): a block
        // without matches or with one distance class costs 8 bits for it.
        if (pUsed >= 2)
            walkPtLengths(pLen.data(), kNP, kPBits, -1, [&](int nb, unsigned) { b += nb; });
        else
            b += 2 * kPBits;
        for (int s = 0; s < kNP; ++s)
            b += uint64_t(pFreq[s]) * (pLen[s] + (s > 1 ? s - 1 : 0));
        bits = b;
    }

    void write(BitWriter& w, const Code* c, size_t n) const
    {
        std::array<uint16_t, kNC> cCode;
        std::array<uint16_t, kNP> pCode;
        std::array<uint16_t, kNT> tCode;
        auto put = [&](int nb, unsigned v) { w.put(nb, v); };
        w.put(16, codes);
        walkPtLengths(tLen.data(), kNT, kTBits, 3, put);
        canonicalCodes(tLen.data(), kNT, tCode.data());
        w.put(kCBits, nc);
        walkCLengths(cLen.data(), nc, [&](int s, int eb, int ev) {
            w.put(tLen[s], tCode[s]);
            w.put(eb, ev);
        });
        canonicalCodes(cLen.data(), kNC, cCode.data());
        if (pUsed >= 2) {
            walkPtLengths(pLen.data(), kNP, kPBits, -1, put);
            canonicalCodes(pLen.data(), kNP, pCode.data());
        } else {
            w.put(kPBits, 0);
            w.put(kPBits, pRoot);
            pCode.fill(0);
        }
        for (size_t i = 0; i < n; ++i) {
            const unsigned s = c[i].sym;
            w.put(cLen[s], cCode[s]);
            if (s >= 256) {
                const unsigned off = c[i].offset;
                const int slot = positionSlot(off);
                w.put(pLen[slot], pCode[slot]);
                if (slot > 1)
                    w.put(slot - 1, off);
            }
        }
    }
};

// ---------------------------------------------------------------------------------------------
// Match finder: hash chains over the last 8 KiB.

constexpr int kHashBits = 15;
// Chain steps per search.
constexpr int kMaxChain = 32;
// A match this long is taken as it is, without searching the positions it covers.
constexpr int kNiceMatch = 48;

struct Match {
    uint16_t length;
    uint16_t distance;
};

class Matcher {
public:
    Matcher(const uint8_t* in, qsizetype n) : in_(in), n_(n), head_(1u << kHashBits, 0)
    {
        prev_.fill(0);
    }

    // Appends to `out` the matches at `p` of rising length, each at the nearest distance that
    // gives it, no longer than `maxLen`; then enters `p` in its chain. Returns the longest length
    // (0 for none).
    int findAll(qsizetype p, int maxLen, std::vector<Match>& out)
    {
        if (n_ - p < kMinMatch)
            return 0;
        const uint32_t h = hash(p);
        uint32_t cand = head_[h];
        prev_[p & (kWindow - 1)] = cand;
        head_[h] = static_cast<uint32_t>(p + 1);
        if (maxLen < kMinMatch)
            return 0;
        int best = kMinMatch - 1;
        int chain = kMaxChain;
        const uint8_t* cur = in_ + p;
        while (cand != 0 && chain-- > 0) {
            const qsizetype c = qsizetype(cand) - 1;
            const qsizetype dist = p - c;
            if (dist > kWindow)
                break;
            const uint8_t* m = in_ + c;
            if (m[best] == cur[best] && m[0] == cur[0] && m[1] == cur[1]) {
                const int len = matchLength(m, cur, maxLen);
                if (len > best) {
                    best = len;
                    out.push_back({uint16_t(len), uint16_t(dist)});
                    if (len >= maxLen || len >= kNiceMatch)
                        break;
                }
            }
            cand = prev_[c & (kWindow - 1)];
        }
        return best >= kMinMatch ? best : 0;
    }

    void insert(qsizetype p)
    {
        if (n_ - p < kMinMatch)
            return;
        const uint32_t h = hash(p);
        prev_[p & (kWindow - 1)] = head_[h];
        head_[h] = static_cast<uint32_t>(p + 1);
    }

private:
    uint32_t hash(qsizetype p) const
    {
        const uint32_t v = uint32_t(in_[p]) << 16 | uint32_t(in_[p + 1]) << 8 | in_[p + 2];
        return (v * 0x9E3779B1u) >> (32 - kHashBits);
    }

    static int matchLength(const uint8_t* a, const uint8_t* b, int maxLen)
    {
        int k = 0;
        while (k + 8 <= maxLen) {
            uint64_t x, y;
            std::memcpy(&x, a + k, 8);
            std::memcpy(&y, b + k, 8);
            if (x != y)
                return k + std::countr_zero(x ^ y) / 8;
            k += 8;
        }
        while (k < maxLen && a[k] == b[k])
            ++k;
        return k;
    }

    const uint8_t* in_;
    qsizetype n_;
    std::vector<uint32_t> head_; // position + 1 of the newest entry, 0 for none
    std::array<uint32_t, kWindow> prev_;
};

// Bits of each code as the last trees gave them; the parse chooses by these.
struct Prices {
    std::array<uint32_t, kNC> c;
    std::array<uint32_t, kNP> p; // code and extra bits of a position class

    Prices()
    {
        for (int s = 0; s < kNC; ++s)
            c[s] = s < 256 ? 8 : 8 + (s - 256) / 32;
        for (int k = 0; k < kNP; ++k)
            p[k] = 3 + (k > 1 ? k - 1 : 0);
    }

    void learn(const uint32_t* cFreq, const uint32_t* pFreq)
    {
        std::array<uint8_t, kNC> cl;
        std::array<uint8_t, kNP> pl;
        huffLengths(cFreq, kNC, cl.data());
        huffLengths(pFreq, kNP, pl.data());
        // Codes that did not occur would get long codes if they came.
        for (int s = 0; s < kNC; ++s)
            c[s] = cl[s] ? cl[s] : 13;
        for (int k = 0; k < kNP; ++k)
            p[k] = (pl[k] ? pl[k] : 6) + (k > 1 ? k - 1 : 0);
    }

    uint32_t match(int len, unsigned distance) const
    {
        return c[256 + len - kMinMatch] + p[positionSlot(distance - 1)];
    }
};

// The parse of one stretch of input: the matches found at every position and the cheapest
// path through them by the current prices.
class Parser {
public:
    Parser(const uint8_t* in, qsizetype n) : in_(in), n_(n), mf_(in, n) {}

    // Finds the matches of [from, to); matches end at `to` at the latest.
    void collect(qsizetype from, qsizetype to)
    {
        from_ = from;
        const qsizetype len = to - from;
        first_.assign(len + 1, 0);
        matches_.clear();
        qsizetype p = from;
        while (p < to) {
            first_[p - from] = static_cast<uint32_t>(matches_.size());
            const int maxLen = static_cast<int>(std::min<qsizetype>(kMaxMatch, to - p));
            const int longest = mf_.findAll(p, maxLen, matches_);
            if (longest >= kNiceMatch) {
                // Long repeats (filler sectors) are taken whole: no search inside them.
                for (qsizetype q = p + 1; q < p + longest; ++q) {
                    mf_.insert(q);
                    first_[q - from] = static_cast<uint32_t>(matches_.size());
                }
                p += longest;
            } else {
                ++p;
            }
        }
        first_[len] = static_cast<uint32_t>(matches_.size());
    }

    // The cheapest codes for the stretch, in order.
    void choose(const Prices& prices, std::vector<Code>& codes)
    {
        const qsizetype len = qsizetype(first_.size()) - 1;
        cost_.assign(len + 1, UINT32_MAX);
        step_.assign(len + 1, {0, 0});
        cost_[0] = 0;
        for (qsizetype i = 0; i < len; ++i) {
            const uint32_t here = cost_[i];
            const uint32_t lit = here + prices.c[in_[from_ + i]];
            if (lit < cost_[i + 1]) {
                cost_[i + 1] = lit;
                step_[i + 1] = {1, 0};
            }
            int shorter = kMinMatch - 1;
            for (uint32_t k = first_[i]; k < first_[i + 1]; ++k) {
                const Match m = matches_[k];
                const uint32_t pos = prices.p[positionSlot(m.distance - 1u)];
                // Every length up to a short match; of a longer one its own length and the
                // shortest lengths, whose codes are the cheap ones.
                const int dense = std::min<int>(m.length, shorter + 8);
                for (int l = shorter + 1; l <= m.length;
                     l = (l < dense || l == m.length) ? l + 1 : int(m.length)) {
                    const uint32_t c = here + prices.c[256 + l - kMinMatch] + pos;
                    if (c < cost_[i + l]) {
                        cost_[i + l] = c;
                        step_[i + l] = {uint16_t(l), m.distance};
                    }
                }
                shorter = m.length;
            }
        }
        const size_t start = codes.size();
        for (qsizetype i = len; i > 0;) {
            const Match s = step_[i];
            if (s.length == 1) {
                codes.push_back({in_[from_ + i - 1], 0});
                i -= 1;
            } else {
                codes.push_back({uint16_t(256 + s.length - kMinMatch), uint16_t(s.distance - 1)});
                i -= s.length;
            }
        }
        std::reverse(codes.begin() + start, codes.end());
    }

private:
    const uint8_t* in_;
    qsizetype n_;
    Matcher mf_;
    qsizetype from_ = 0;
    std::vector<uint32_t> first_; // index of the first match of each position
    std::vector<Match> matches_;
    std::vector<uint32_t> cost_;
    std::vector<Match> step_; // how each position is reached: length 1 = a byte
};

// Codes gather in chunks; a chunk joins the open block while one tree for both costs fewer
// bits than two, otherwise the block is written and the chunk opens the next.
constexpr size_t kChunkCodes = 1024;

class BlockSink {
public:
    explicit BlockSink(QByteArray& out) : w_(out) {}

    void push(uint16_t sym, uint16_t offset = 0)
    {
        chunk_.push_back({sym, offset});
        if (chunk_.size() >= kChunkCodes)
            closeChunk();
    }

    void finish()
    {
        closeChunk();
        if (!block_.empty())
            writeBlock();
        w_.flush();
    }

    void closeChunk()
    {
        if (chunk_.empty())
            return;
        BlockPlan chunkPlan;
        chunkPlan.add(chunk_.data(), chunk_.size());
        chunkPlan.plan();
        if (block_.empty()) {
            blockPlan_ = chunkPlan;
        } else {
            bool join = blockPlan_.codes + chunkPlan.codes <= kMaxBlockCodes;
            BlockPlan joined = blockPlan_;
            if (join) {
                joined.add(chunkPlan);
                joined.plan();
                join = joined.bits <= blockPlan_.bits + chunkPlan.bits;
            }
            if (join) {
                blockPlan_ = joined;
            } else {
                writeBlock();
                blockPlan_ = chunkPlan;
            }
        }
        block_.insert(block_.end(), chunk_.begin(), chunk_.end());
        chunk_.clear();
    }

private:
    void writeBlock()
    {
        blockPlan_.write(w_, block_.data(), block_.size());
        block_.clear();
    }

    BitWriter w_;
    std::vector<Code> chunk_;
    std::vector<Code> block_;
    BlockPlan blockPlan_;
};

} // namespace

uint16_t LzhCrc16(const uint8_t* data, qsizetype size, uint16_t crc)
{
    for (qsizetype i = 0; i < size; ++i)
        crc = static_cast<uint16_t>(kCrcTable[(crc ^ data[i]) & 0xFF] ^ (crc >> 8));
    return crc;
}

bool EncodeLh5(const uint8_t* data, qsizetype size, QByteArray& out, qsizetype limit,
               const std::function<void(qint64)>& progress)
{
    const qsizetype base = out.size();
    BlockSink sink(out);
    Parser parser(data, size);
    Prices prices;
    std::vector<Code> codes;
    // The input goes in stretches; each is parsed twice, the second time by the prices that
    // the first parse gave, which then carry over to the next stretch.
    constexpr qsizetype kStretch = 32 * 1024;
    for (qsizetype from = 0; from < size; from += kStretch) {
        const qsizetype to = std::min(size, from + kStretch);
        parser.collect(from, to);
        for (int pass = 0; pass < 2; ++pass) {
            codes.clear();
            parser.choose(prices, codes);
            BlockPlan stats;
            stats.add(codes.data(), codes.size());
            prices.learn(stats.cFreq.data(), stats.pFreq.data());
        }
        for (const Code& c : codes)
            sink.push(c.sym, c.offset);
        if (out.size() - base > limit)
            return false;
        if (progress)
            progress(to);
    }
    sink.finish();
    return out.size() - base <= limit;
}

uint32_t DosDateTime(const QDateTime& local)
{
    const QDate d = local.date();
    const QTime t = local.time();
    if (!d.isValid() || d.year() < 1980)
        return (0u << 9 | 1u << 5 | 1u) << 16;
    if (d.year() > 2107)
        return (127u << 9 | 12u << 5 | 31u) << 16 | (23u << 11 | 59u << 5 | 29u);
    const uint32_t date = uint32_t(d.year() - 1980) << 9 | uint32_t(d.month()) << 5 | d.day();
    const uint32_t time = uint32_t(t.hour()) << 11 | uint32_t(t.minute()) << 5 | t.second() / 2;
    return date << 16 | time;
}

bool AppendLzhMember(QByteArray& out, const QByteArray& sjisName, uint32_t dosDateTime,
                     const uint8_t* data, qsizetype size,
                     const std::function<void(qint64)>& progress, LzhMethod method)
{
    if (size < 0 || uint64_t(size) > 0xFFFFFFFFu || sjisName.isEmpty() ||
        sjisName.size() > 0xFFFF - 3)
        return false;
    const uint16_t crc = LzhCrc16(data, size);

    QByteArray packed;
    // Stored when -lh5- would not be smaller, as archivers do.
    bool lh5 = true;
    if (method == LzhMethod::Lh5)
        EncodeLh5(data, size, packed, std::numeric_limits<qsizetype>::max(), progress);
    else
        lh5 = size > 0 && EncodeLh5(data, size, packed, size - 1, progress);
    if (!lh5 && progress)
        progress(size);
    const qsizetype dataSize = lh5 ? packed.size() : size;

    // Level 1 with OS 'M': the header that DOS and Windows archivers of every age read, with
    // the MS-DOS file time. Its one-byte header size holds names of up to 230 bytes; a longer
    // name goes into a file-name extended header with an empty name in the base header.
    const bool nameInBase = sjisName.size() <= 230;
    const qsizetype extSize = nameInBase ? 0 : 3 + sjisName.size();
    if (uint64_t(dataSize) + uint64_t(extSize) > 0xFFFFFFFFu)
        return false;

    QByteArray header;
    ByteWriter w(header);
    w.u8(0); // header size, filled in below
    w.u8(0); // header checksum, likewise
    w.raw(lh5 ? "-lh5-" : "-lh0-", 5);
    w.i32(static_cast<int32_t>(uint32_t(dataSize + extSize)));
    w.i32(static_cast<int32_t>(uint32_t(size)));
    w.i32(static_cast<int32_t>(dosDateTime));
    w.u8(0x20); // MS-DOS attribute: archive
    w.u8(1);    // header level
    if (nameInBase) {
        w.u8(static_cast<uint8_t>(sjisName.size()));
        w.raw(sjisName, sjisName.size());
    } else {
        w.u8(0);
    }
    w.i16(static_cast<int16_t>(crc));
    w.u8('M');
    w.i16(static_cast<int16_t>(extSize));
    const qsizetype baseSize = header.size();
    header[0] = char(baseSize - 2);
    uint8_t sum = 0;
    for (qsizetype i = 2; i < baseSize; ++i)
        sum = uint8_t(sum + uint8_t(header[i]));
    header[1] = char(sum);
    if (!nameInBase) {
        w.u8(0x01); // extended header: file name
        w.raw(sjisName, sjisName.size());
        w.i16(0); // no further extended header
    }

    out.append(header);
    if (lh5)
        out.append(packed);
    else
        out.append(reinterpret_cast<const char*>(data), size);
    return true;
}

} // namespace tv
