#include "drawing.h"

#include <sstream>
#include <stdexcept>

namespace
{

// Reads the words of one part, in pixels.
class PartReader
{
public:
    PartReader(const std::string &text, float pixelsPerUnit) : words_(text), scale_(pixelsPerUnit)
    {
    }

    std::string word()
    {
        std::string text;
        if (!(words_ >> text))
            throw std::invalid_argument("a word is missing in: " + words_.str());
        return text;
    }
    float length() { return number() * scale_; }
    Point point()
    {
        const float x = number() * scale_;
        char comma = 0;
        words_ >> comma;
        if (comma != ',')
            throw std::invalid_argument("a point has no comma in: " + words_.str());
        return {x, number() * scale_};
    }
    std::vector<Point> points(Point center, float degrees)
    {
        std::vector<Point> all;
        while (words_ >> std::ws && !words_.eof())
            all.push_back(turned(point(), center, degrees));
        return all;
    }

private:
    float number()
    {
        float value = 0;
        if (!(words_ >> value))
            throw std::invalid_argument("a number is missing in: " + words_.str());
        return value;
    }

    std::istringstream words_;
    float scale_;
};

DrawingPart readPart(const std::string &text, float pixelsPerUnit, Point center, float degrees)
{
    PartReader reader(text, pixelsPerUnit);
    std::string kind = reader.word();
    float angle = 0;
    if (kind == "turn") {
        angle = degrees;
        kind = reader.word();
    }
    if (kind == "shape" || kind == "line") {
        const std::string color = reader.word();
        const float width = kind == "line" ? reader.length() : 0;
        std::vector<Point> points = reader.points(center, angle);
        if (points.size() < 2)
            throw std::invalid_argument("too few points in: " + text);
        return {kind == "line" ? stroke(points, width) : polygon(points), color};
    }
    const bool isRound = kind == "disc" || kind == "ring";
    if (!isRound && kind != "box" && kind != "frame")
        throw std::invalid_argument("no shape is called " + kind);
    const Point first = turned(reader.point(), center, angle);
    const Point second = isRound ? Point{} : turned(reader.point(), center, angle);
    const float radius = reader.length();
    Distance distance = isRound ? disc(first, radius) : box(first, second, radius);
    if (kind == "ring" || kind == "frame")
        distance = rimOf(distance, reader.length());
    return {distance, reader.word()};
}

} // namespace

std::vector<DrawingPart> partsOf(const Drawing &drawing, float pixelsPerUnit, float degrees)
{
    const Point center{drawing.width * pixelsPerUnit / 2, drawing.height * pixelsPerUnit / 2};
    std::vector<DrawingPart> parts;
    std::istringstream all(drawing.text);
    for (std::string text; std::getline(all, text, ';');)
        parts.push_back(readPart(text, pixelsPerUnit, center, degrees));
    return parts;
}

void draw(Picture &picture, const Drawing &drawing, State state, float degrees)
{
    const float scale = float(picture.width()) / drawing.width;
    for (const DrawingPart &part : partsOf(drawing, scale, degrees))
        part.color == "clear" ? picture.erase(part.distance)
                              : picture.fill(part.distance, roleColor(part.color, state));
}
