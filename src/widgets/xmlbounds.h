// What stands between a file from outside and TinyXML.
//
// TinyXML reads an element within an element by recursion, looks for a second attribute of the same
// name in the list of all before it, and steps over the end of text that is not UTF-8. A document
// of bounded depth, whose elements have few attributes, in UTF-8 without zeros, does it no harm.
#pragma once

#include <cstddef>

struct XmlBounds {
    static constexpr int Depth = 100;      // elements within each other
    static constexpr int Attributes = 32;  // of one element
    static constexpr int Nodes = 100'000;  // elements, texts, comments and all else
    static constexpr int Size = 4'194'304; // bytes
};

// Looks at the document once, from the front, in the way TinyXML would. The number of its elements
// when it keeps the bounds, otherwise -1; also for what TinyXML would refuse on the way. A document
// that gets a number can still be refused by TinyXML, but does it no harm. A zero must stand behind
// the last byte.
int elementsWithinBounds(const char *text, std::size_t size);
