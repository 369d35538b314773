// One deed done to a container of ours and to the standard one that tells what comes of it.
#pragma once

#include "support/random_seed.h"

#include <functional>
#include <iterator>

struct Change {
    std::function<void()> ours, standard;
};

template <typename Changes>
void makeOne(const Changes &changes, std::mt19937 &random)
{
    const Change &change = *(std::begin(changes) + pick(random, 0, int(std::size(changes)) - 1));
    change.ours();
    change.standard();
}
