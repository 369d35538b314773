// The seed of a random test: new on every run, printed, and repeatable through ZR_SEED.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <random>

inline std::mt19937 seededRandom()
{
    const char *given = std::getenv("ZR_SEED");
    const unsigned seed =
        given ? unsigned(std::strtoul(given, nullptr, 0)) : std::random_device()();
    std::printf("ZR_SEED=%u\n", seed);
    std::fflush(stdout); // a crash would lose it
    return std::mt19937(seed);
}

// A number from lowest to highest.
inline int pick(std::mt19937 &random, int lowest, int highest)
{
    return std::uniform_int_distribution<int>(lowest, highest)(random);
}
