// The division of a line of a layout: rows worked out by hand, and random chains against a model
// that is written for plainness.
#include "support/random_seed.h"
#include "widgets/layout/zrlayoutstruct.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace
{

using Entry = ZrLayoutStruct;
using Places = std::vector<std::pair<int, int>>; // position and size

Entry entry(int stretch, int minimum, int hint, int maximum, int spacing = 0)
{
    Entry made;
    made.stretch = stretch;
    made.minimumSize = minimum;
    made.sizeHint = hint;
    made.maximumSize = maximum;
    made.empty = false;
    made.spacing = spacing;
    return made;
}

Places places(const ZrVector<Entry> &chain)
{
    Places all;
    for (const Entry &each : chain)
        all.push_back({each.pos, each.size});
    return all;
}

// --- the model ---

long long rounded(long long fixed)
{
    return (fixed + 128) >> 8;
}

// Sizes between rounded boundaries of the running sum: no share is rounded on its own.
std::vector<int> betweenBoundaries(const std::vector<long long> &shares)
{
    std::vector<int> sizes;
    long long sum = 0;
    for (const long long share : shares) {
        sizes.push_back(int(rounded(sum + share) - rounded(sum)));
        sum += share;
    }
    return sizes;
}

class Model
{
public:
    Model(const ZrVector<Entry> &chain, int space) : chain_(chain), space_(space)
    {
        int lastFull = -1;
        for (int i = 0; i < chain_.size(); ++i) {
            if (chain_.at(i).empty)
                continue;
            if (lastFull >= 0)
                spacing_ += chain_.at(lastFull).spacing;
            lastFull = i;
        }
        sizes_.assign(std::size_t(chain_.size()), 0);
    }

    Places solve()
    {
        const long long room = space_ - spacing_;
        long long minima = 0, hints = 0;
        for (const Entry &each : chain_) {
            minima += each.minimumSize;
            hints += each.smallest();
        }
        long long extra = 0;
        if (room < minima)
            cut(std::max(room, 0LL));
        else if (room < hints)
            giveUp(hints - room);
        else
            extra = share(room);
        Places all;
        int pos = int(extra / 2);
        for (int i = 0; i < chain_.size(); ++i) {
            all.push_back({pos, sizes_[std::size_t(i)]});
            pos += sizes_[std::size_t(i)] + (chain_.at(i).empty ? 0 : chain_.at(i).spacing);
        }
        return all;
    }

private:
    // The least limit under which the cut minima still fill the room, found by trying each.
    void cut(long long room)
    {
        const auto filled = [this](int limit) {
            long long sum = 0;
            for (const Entry &each : chain_)
                sum += std::min(each.minimumSize, limit);
            return sum;
        };
        int limit = 0;
        while (filled(limit) < room)
            ++limit;
        int items = 0;
        for (const Entry &each : chain_)
            items += each.minimumSize >= limit;
        const long long over = filled(limit) - room;
        for (int i = 0; i < chain_.size(); ++i) {
            const bool less = (i + 1) * over / items > i * over / items;
            sizes_[std::size_t(i)] = std::min(chain_.at(i).minimumSize, limit - int(less));
        }
    }

    void giveUp(long long missing)
    {
        std::vector<int> open;
        for (int i = 0; i < chain_.size(); ++i) {
            const Entry &each = chain_.at(i);
            sizes_[std::size_t(i)] = each.smallest();
            if (each.minimumSize < each.smallest())
                open.push_back(i);
        }
        while (!open.empty()) {
            const auto parts = betweenBoundaries(
                std::vector<long long>(open.size(), missing * 256 / (long long)(open.size())));
            std::size_t tooMuch = open.size();
            for (std::size_t i = 0; i < open.size(); ++i) {
                const Entry &each = chain_.at(open[i]);
                sizes_[std::size_t(open[i])] = each.sizeHint - parts[i];
                if (each.sizeHint - parts[i] < each.minimumSize && tooMuch == open.size())
                    tooMuch = i;
            }
            if (tooMuch == open.size())
                return;
            const Entry &least = chain_.at(open[tooMuch]);
            sizes_[std::size_t(open[tooMuch])] = least.minimumSize;
            missing -= least.sizeHint - least.minimumSize;
            open.erase(open.begin() + long(tooMuch));
        }
    }

    long long share(long long room)
    {
        bool someGrow = false, allEmpty = true;
        for (const Entry &each : chain_) {
            const bool grows = each.stretch > 0 || each.expansive;
            someGrow = someGrow || grows;
            allEmpty = allEmpty && each.empty && !grows;
        }
        std::vector<int> open;
        for (int i = 0; i < chain_.size(); ++i) {
            const Entry &each = chain_.at(i);
            const bool grows = each.stretch > 0 || each.expansive;
            sizes_[std::size_t(i)] = each.smallest();
            if (each.maximumSize <= each.smallest() || (someGrow && !grows) ||
                (!allEmpty && each.empty && !grows))
                room -= each.smallest();
            else
                open.push_back(i);
        }
        while (!open.empty()) {
            long long stretch = 0;
            for (const int i : open)
                stretch += chain_.at(i).stretch;
            std::vector<long long> shares;
            for (const int i : open) {
                shares.push_back(stretch > 0 ? room * 256 * chain_.at(i).stretch / stretch
                                             : room * 256 / (long long)(open.size()));
            }
            const std::vector<int> tried = betweenBoundaries(shares);
            long long lacking = 0, over = 0;
            for (std::size_t i = 0; i < open.size(); ++i) {
                lacking += std::max(chain_.at(open[i]).smallest() - tried[i], 0);
                over += std::max(tried[i] - chain_.at(open[i]).maximumSize, 0);
                sizes_[std::size_t(open[i])] = tried[i];
            }
            if (lacking == 0 && over == 0)
                return 0;
            std::vector<int> stay;
            for (std::size_t i = 0; i < open.size(); ++i) {
                const Entry &each = chain_.at(open[i]);
                const int bound = lacking >= over ? std::max(tried[i], each.smallest())
                                                  : std::min(tried[i], each.maximumSize);
                sizes_[std::size_t(open[i])] = bound;
                if (bound == tried[i])
                    stay.push_back(open[i]);
                else
                    room -= bound;
            }
            open = stay;
        }
        return room;
    }

    const ZrVector<Entry> &chain_;
    long long space_;
    long long spacing_ = 0;
    std::vector<int> sizes_;
};

} // namespace

TEST(Distribution, DividesToThePixel)
{
    const int most = ZrLayoutItem::SizeLimit;
    Entry expansive = entry(0, 0, 10, most);
    expansive.expansive = true;
    Entry spacer = entry(0, 8, 8, 8);
    spacer.empty = true;
    Entry hidden = entry(0, 0, 0, 0);
    hidden.empty = true;
    const struct {
        const char *what;
        std::vector<Entry> chain;
        int space;
        int spacer;
        Places expected;
    } rows[] = {
        {"stretches share in proportion",
         {entry(1, 0, 50, most), entry(2, 0, 50, most)},
         300,
         -1,
         {{0, 100}, {100, 200}}},
        {"equal shares, the odd pixel where the fraction fills",
         {entry(0, 0, 10, most), entry(0, 0, 10, most), entry(0, 0, 10, most)},
         100,
         -1,
         {{0, 33}, {33, 34}, {67, 33}}},
        {"only the expansive one grows",
         {entry(0, 0, 20, most, 5), expansive},
         100,
         -1,
         {{0, 20}, {25, 75}}},
        {"who is at its maximum leaves the rest to others",
         {entry(1, 0, 0, 30), entry(1, 0, 0, most), entry(1, 0, 0, most)},
         150,
         -1,
         {{0, 30}, {30, 60}, {90, 60}}},
        {"what nobody may take stands half before",
         {entry(0, 0, 10, 20), entry(0, 0, 10, 20)},
         100,
         -1,
         {{30, 20}, {50, 20}}},
        {"missing pixels are given up alike",
         {entry(0, 0, 50, most, 10), entry(0, 0, 50, most)},
         90,
         -1,
         {{0, 40}, {50, 40}}},
        {"down to the minimum",
         {entry(0, 48, 50, most), entry(0, 0, 50, most)},
         80,
         -1,
         {{0, 48}, {48, 32}}},
        {"the greatest minima are cut first",
         {entry(0, 10, 10, most), entry(0, 50, 50, most), entry(0, 40, 40, most)},
         71,
         -1,
         {{0, 10}, {10, 30}, {40, 31}}},
        {"spacing is cut with the minima",
         {entry(0, 50, 50, most), entry(0, 50, 50, most)},
         50,
         10,
         {{0, 23}, {28, 22}}},
        {"a given spacing stands for each",
         {entry(0, 10, 10, 10, 99), entry(0, 10, 10, 10)},
         24,
         4,
         {{0, 10}, {14, 10}}},
        {"spacers take room but no spacing",
         {entry(0, 0, 10, 10, 6), spacer, hidden, entry(0, 0, 10, 10)},
         34,
         -1,
         {{0, 10}, {16, 8}, {24, 0}, {24, 10}}},
        {"nothing is negative",
         {entry(0, 10, 10, most, 30), entry(0, 10, 10, most)},
         5,
         -1,
         {{0, 0}, {30, 0}}},
    };
    for (const auto &row : rows) {
        ZrVector<Entry> chain;
        for (const Entry &each : row.chain)
            chain.append(each);
        calculateGeometry(chain, 0, chain.size(), 0, row.space, row.spacer);
        EXPECT_EQ(places(chain), row.expected) << row.what;
    }
}

TEST(Distribution, RandomChainsAgreeWithThePlainModel)
{
    std::mt19937 random = seededRandom();
    for (int round = 0; round < 20000; ++round) {
        ZrVector<Entry> chain;
        const int count = pick(random, 1, 9);
        for (int i = 0; i < count; ++i) {
            const int minimum = pick(random, 0, 60);
            const int hint = pick(random, 0, 120);
            Entry made = entry(std::max(pick(random, -4, 3), 0), minimum, hint,
                               pick(random, 0, 2) ? ZrLayoutItem::SizeLimit
                                                  : std::max(minimum, pick(random, 0, 200)),
                               pick(random, 0, 12));
            made.empty = pick(random, 0, 4) == 0;
            made.expansive = pick(random, 0, 3) == 0;
            chain.append(made);
        }
        const int space = pick(random, 0, 1200);
        const Places expected = Model(chain, space).solve();
        calculateGeometry(chain, 0, count, 0, space);
        ASSERT_EQ(places(chain), expected) << "round " << round << ", space " << space;
    }
}
