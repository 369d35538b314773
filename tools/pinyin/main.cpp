// Makes the pinyin keyboard's dictionary from a dictionary of words with their syllables and
// weights:
//
//   zr-pinyin WORDS OUTPUT
//
// WORDS: lines of word, syllables with spaces between them, and weight, with tabs between these;
// other lines are left out. OUTPUT: a line for each spelling, sorted by it: the letters without
// spaces, then, heaviest first, a tab, a word, a space and its weight.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <map>
#include <string>
#include <vector>

namespace
{

constexpr std::size_t LongestWord = 18; // bytes: six characters
constexpr std::size_t LeastSpellings = 300;

struct Word {
    std::string text;
    long weight;
};
using Dictionary = std::map<std::string, std::vector<Word>>;

bool readLine(const std::string &line, Dictionary &dictionary)
{
    const std::size_t first = line.find('\t');
    const std::size_t second = first == std::string::npos ? first : line.find('\t', first + 1);
    if (second == std::string::npos || first == 0 || first > LongestWord)
        return false;
    std::string spelling = line.substr(first + 1, second - first - 1);
    spelling.erase(std::remove(spelling.begin(), spelling.end(), ' '), spelling.end());
    const bool isSpelling = !spelling.empty() &&
                            std::all_of(spelling.begin(), spelling.end(),
                                        [](char letter) { return letter >= 'a' && letter <= 'z'; });
    if (!isSpelling)
        return false;
    const long weight = std::max(0L, std::strtol(line.c_str() + second, nullptr, 10));
    dictionary[spelling].push_back({line.substr(0, first), weight});
    return true;
}

void write(std::ofstream &file, Dictionary &dictionary)
{
    for (auto &[spelling, words] : dictionary) {
        std::stable_sort(words.begin(), words.end(), [](const Word &left, const Word &right) {
            return left.weight > right.weight;
        });
        file << spelling;
        for (const Word &word : words)
            file << '\t' << word.text << ' ' << word.weight;
        file << '\n';
    }
}

} // namespace

int main(int count, char **arguments)
{
    if (count != 3) {
        std::fprintf(stderr, "usage: zr-pinyin WORDS OUTPUT\n");
        return 2;
    }
    std::ifstream words(arguments[1]);
    Dictionary dictionary;
    std::size_t read = 0;
    for (std::string line; std::getline(words, line);)
        read += readLine(line, dictionary) ? 1 : 0;
    if (dictionary.size() < LeastSpellings) {
        std::fprintf(stderr, "zr-pinyin: %s has no words\n", arguments[1]);
        return 1;
    }
    std::ofstream file(arguments[2], std::ios::binary);
    write(file, dictionary);
    std::printf("%s: %zu words, %zu spellings\n", arguments[2], read, dictionary.size());
    return file.good() ? 0 : 1;
}
