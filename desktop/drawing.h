#pragma once
// What stands on a picture, as lines, circles and texts: for sharp enlargements, for .svg and for .csv.

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

#include "runtime/picture.h"

namespace tarvex {

constexpr double textShare = 0.8;     ///< of the height of a line of text: the size of its font
constexpr double ascentShare = 0.93;  ///< of the size of the font: from the top of a line down to its base

struct Mark {
    enum class Kind : std::uint8_t { Line, Circle, Disc, Text } kind;
    double x, y;            ///< canvas units; left top corner of a text, middle of a circle
    double x2 = 0, y2 = 0;  ///< other end of a line; x2 alone: radius, height of a text
    Color color;
    std::string text = "";
    std::uint32_t scale = 0;  ///< which user scale it was drawn in

    bool sameShape(const Mark& other) const {
        return kind == other.kind && x == other.x && y == other.y && x2 == other.x2 && y2 == other.y2 &&
               text == other.text;
    }
};

/// The marks of a picture in the order they were drawn.  A mark drawn again at the same place replaces the
/// old one, and in the background colour takes it away, so that a moving body leaves nothing behind.  Beyond
/// `most` marks the oldest go, its texts last.
class Drawing {
public:
    struct Scale {
        double left = 0, top = 0, right = 1, bottom = 1;
    };

    Drawing(double width, double height, std::size_t most = 20000)
        : width_(width), height_(height), most_(most) {}

    void setScale(const Scale& scale);
    void clear(Color background);
    void add(Mark mark);

    /// False when old marks are gone: then only the image shows everything.
    bool complete() const { return complete_; }
    /// Marks at most that stand, and the texts that do.
    std::size_t size() const { return marks_.size(); }
    std::size_t texts() const { return texts_; }
    double width() const { return width_; }
    double height() const { return height_; }
    Color background() const { return background_; }
    /// Calls with each mark, the oldest first.
    template <class Use>
    void each(Use use) const {
        for (const Mark& mark : marks_)
            if (mark.scale != gone) use(mark);
    }
    /// User coordinates of a point, in the scale in which the mark was drawn.
    double userX(const Mark& mark, double x) const;
    double userY(const Mark& mark, double y) const;

private:
    static constexpr std::uint32_t gone = 0xffffffff;  ///< the scale of a mark that was taken away

    static std::size_t hash(const Mark& mark);
    void tidy();

    double width_, height_;
    std::size_t most_, texts_ = 0;
    Color background_{255, 255, 255};
    bool complete_ = true, scaleUsed_ = false;
    std::vector<Scale> scales_{{}};
    std::vector<Mark> marks_;
    std::unordered_map<std::size_t, std::size_t> places_;  ///< of marks by the hash of their shapes
};

}  // namespace tarvex
