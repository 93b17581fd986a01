#pragma once
// What a picture means: its axes as quantities with units, and the points of its named series.  A picture
// draws by itself; from this a screen lays ticks, a legend and values over it, and writes tables.

#include <cstdint>
#include <functional>
#include <limits>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace tarvex {

struct Color {
    int r = 0, g = 0, b = 0;
    bool operator==(const Color&) const = default;
};

/// An axis of a picture: quantity = offset + factor * user coordinate.
struct Axis {
    std::string name, unit;
    double offset = 0, factor = 1;
    std::string sign = "";  ///< stands right behind a value in place of the unit

    double at(double user) const { return offset + factor * user; }
    bool operator==(const Axis&) const = default;
};

struct Axes {
    Axis x, y;
    /// Both axes measure the same: what is drawn keeps its shape.
    bool square() const { return !x.unit.empty() && x.unit == y.unit; }
    bool operator==(const Axes&) const = default;
};

/// User coordinates of the left top and the right bottom corner of a picture.
struct UserScale {
    double left = 0, top = 0, right = 1, bottom = 1;
    bool operator==(const UserScale&) const = default;
};

/// What a series is: a quantity of a run, in the axes of a layer.
struct SeriesSpec {
    static constexpr int asDrawn = -1;

    std::string quantity;  ///< "dAlfaP"
    std::string run = "";  ///< "эксп. 1"; empty where there is only one
    int layer = 0;
    int color = asDrawn;  ///< number of a colour that stands for the quantity; asDrawn: as the form draws it
    int mark = 0;         ///< number of a mark that stands for the run
    bool joined = false;  ///< its points are ends of lines

    /// "dAlfaP, эксп. 1"
    std::string name() const { return run.empty() ? quantity : quantity + ", " + run; }
    bool operator==(const SeriesSpec&) const = default;
};

class Plot {
public:
    struct Point {
        double x, y;
    };
    /// How user coordinates are to be read: as quantities, and as places on the picture.
    struct Meaning {
        Axes axes;
        UserScale scale;
        /// Place in shares of the picture, from its left top corner.
        Point place(Point user) const {
            return {(user.x - scale.left) / (scale.right - scale.left),
                    (user.y - scale.top) / (scale.bottom - scale.top)};
        }
        Point value(Point user) const { return {axes.x.at(user.x), axes.y.at(user.y)}; }
    };
    /// Where points lie, in shares of the picture.
    struct Bounds {
        double left = std::numeric_limits<double>::infinity(), top = left, right = -left, bottom = -left;
        bool empty() const { return left > right; }
        void add(Point place);
        void add(const Bounds& other);
    };
    /// The points from one on that share a meaning.
    struct Stretch {
        std::size_t first;
        std::shared_ptr<const Meaning> meaning;
    };
    class Series {
    public:
        const SeriesSpec& spec() const { return spec_; }
        const std::vector<Point>& points() const { return points_; }  ///< user coordinates, as drawn
        const std::vector<Stretch>& stretches() const { return stretches_; }
        const Meaning& meaningOf(std::size_t point) const;
        const Bounds& bounds() const { return bounds_; }
        Color color() const { return color_; }  ///< in which the form drew the last point
        /// Grows when points go: what a screen has drawn of the series stands no more.
        int revision() const { return revision_; }
        /// Only the extremes of neighbouring points are left of a long series.
        bool thinned() const { return thinned_; }
        /// The last point lies outside the picture.
        bool away() const;

    private:
        friend class Plot;
        void thin();
        void measure();

        SeriesSpec spec_;
        std::vector<Point> points_;
        std::vector<Stretch> stretches_;
        Bounds bounds_;
        Color color_;
        int revision_ = 0;
        bool thinned_ = false;
    };

    static constexpr int none = -1;

    /// @param most  points of all series together: beyond it the longest series becomes thinner
    explicit Plot(std::size_t most = 200'000) : most_(most) {}

    /// What user coordinates are from now on.
    void setScale(const UserScale& scale);
    void setAxes(int layer, const Axes& axes);
    /// The number of this series, new or known.  Of very many series the oldest go.
    int series(const SeriesSpec& spec);
    /// A point in user coordinates; no number is left out, as is a series that has gone.
    void add(int series, Point user, Color color);
    /// Takes the last point of this place away.
    void take(int series, Point user);
    /// Takes all points away; axes and the numbers of series stay.
    void clear();
    /// Nothing has a meaning any more.
    void forget();

    /// Some axes have a meaning.
    bool described() const { return !layers_.empty(); }
    /// The layers by their numbers, as they are now.
    const std::map<int, std::shared_ptr<const Meaning>>& layers() const { return layers_; }
    /// The series by their numbers, the oldest first.
    const std::map<int, Series>& all() const { return series_; }
    bool empty() const { return points_ == 0; }
    /// Bounds of the series that a condition takes.
    Bounds bounds(const std::function<bool(const Series&)>& takes) const;

private:
    void thinLongest();
    void dropOne();

    std::size_t most_, points_ = 0;
    UserScale scale_;
    std::map<int, std::shared_ptr<const Meaning>> layers_;
    std::map<int, Series> series_;
    int last_ = none;
};

}  // namespace tarvex
