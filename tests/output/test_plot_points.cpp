// The points of a plot found from where they stand on it, and told in words.

#include "output/PlotPoints.h"

#include "output/PlotWords.h"
#include "tests/CoreTestSupport.h"

#include <gtest/gtest.h>
#include <utility>
#include <vector>

namespace quarnel {
namespace {

/// Points at (time, Y) on axes of 0 to 100 and 0.01 to 1, 10,000 by 2,000 twips from (1000, 500).
struct Desk {
    RecoveryData recovery;
    PlotPoints points;

    explicit Desk(const std::vector<std::pair<double, double>>& placed) {
        RecoveryPointList& list = recovery.RecoveryPoints.Renew(placed.size());
        for (const auto& [time, y] : placed) {
            RecoveryPoint point;
            point.time = time;
            point.y = y;
            list.push_back(point);
        }
        points = PlotPoints(recovery.RecoveryPoints);
    }
    static PlotAxes Axes(double maxTime = 100) {
        PlotBounds bounds;
        bounds.PlotMaxTime = maxTime;
        bounds.PlotYAxisMin = 0.01;
        bounds.PlotYAxisMax = 1;
        PlotLayout layout;
        layout.left = 1000;
        layout.top = 500;
        layout.plotWidth = 10000;
        layout.plotHeight = 2000;
        return {bounds, layout};
    }
};

TEST(PlotPoints, AreFoundBetweenTwoPlaces) {
    const Desk desk({{0, 1}, {10, 0.5}, {10, 0.4}, {20, -1}, {50, 0.1}, {300, 0}});
    const PlotAxes axes = Desk::Axes();
    EXPECT_EQ(desk.points.Between(axes, 1900, 3100), (PlaceRange{1, 4}));
    EXPECT_EQ(desk.points.Between(axes, 1000, 2000), (PlaceRange{0, 3}));
    EXPECT_EQ(desk.points.Between(axes, 2000, 2000), (PlaceRange{1, 3}));
    EXPECT_EQ(desk.points.Between(axes, -1e9, 1e9), (PlaceRange{0, 6}));
    EXPECT_TRUE(desk.points.Between(axes, 2001, 2999).IsEmpty());
    EXPECT_TRUE(desk.points.Between(axes, 40000, 50000).IsEmpty());
    EXPECT_TRUE(Desk({}).points.Between(axes, -1e9, 1e9).IsEmpty());
}

TEST(PlotPoints, StandAtTheBeginningOfAnAxisWithoutLength) {
    const Desk desk({{0, 1}, {0, 0.5}});
    EXPECT_EQ(desk.points.Between(Desk::Axes(0), 900, 1100), (PlaceRange{0, 2}));
    EXPECT_TRUE(desk.points.Between(Desk::Axes(0), 1001, 9000).IsEmpty());
}

TEST(PlotPoints, TheNearestIsFoundWithinReach) {
    const Desk desk({{0, 1}, {10, 0.1}, {11, 0.1}, {11, 0.1}, {12, 0}});
    const PlotAxes axes = Desk::Axes();
    EXPECT_EQ(desk.points.Nearest(axes, 2040, 1500, 120), std::size_t{1});
    EXPECT_EQ(desk.points.Nearest(axes, 2060, 1500, 120), std::size_t{2});
    EXPECT_EQ(desk.points.Nearest(axes, 2100, 1619, 120), std::size_t{2});
    EXPECT_EQ(desk.points.Nearest(axes, 2100, 1621, 120), std::nullopt);
    // What has no circle is not found.
    EXPECT_EQ(desk.points.Nearest(axes, 2200, axes.LogY(0), 50), std::nullopt);
}

TEST(PlotPoints, NeighboursAreThoseWithACircle) {
    const Desk desk({{0, -1}, {1, 1}, {2, 0}, {3, 0.5}});
    EXPECT_EQ(desk.points.Neighbour(-1, 1), std::size_t{1});
    EXPECT_EQ(desk.points.Neighbour(1, 1), std::size_t{3});
    EXPECT_EQ(desk.points.Neighbour(3, 1), std::nullopt);
    EXPECT_EQ(desk.points.Neighbour(4, -1), std::size_t{3});
    EXPECT_EQ(desk.points.Neighbour(3, -1), std::size_t{1});
    EXPECT_EQ(desk.points.Neighbour(1, -1), std::nullopt);
}

TEST(PlotPoints, ReadingsInNoOrderHaveTheirPlacesInTime) {
    const Desk desk({{30, 1}, {0, 1}, {20, 1}, {10, 1}, {20, 1}});
    const std::vector<std::size_t> inTime = {1, 3, 2, 4, 0};
    for (std::size_t place = 0; place < inTime.size(); ++place) {
        EXPECT_EQ(desk.points.PointAt(place), inTime[place]);
        EXPECT_EQ(desk.points.PlaceOf(inTime[place]), place);
    }
    const PlaceRange places = desk.points.Between(Desk::Axes(), 1500, 3000);
    EXPECT_EQ(places, (PlaceRange{1, 4}));
    EXPECT_EQ(desk.points.RunsOf(places), (PointRuns{{2, 4}}));
    EXPECT_EQ(desk.points.RunsOf({2, 5}), (PointRuns{{0, 0}, {2, 2}, {4, 4}}));
    EXPECT_EQ(desk.points.PlacesOf({{0, 0}, {2, 2}, {4, 4}}), (PlaceRange{2, 5}));
    EXPECT_EQ(desk.points.RunsOf({3, 3}), PointRuns());
    EXPECT_TRUE(desk.points.PlacesOf({}).IsEmpty());
}

TEST(PlotWords, TellAPointAsItStandsInTheGrid) {
    RecoveryData recovery;
    recovery.timeUnit = 1;
    recovery.levelUnit = 3;
    RecoveryPointList& list = recovery.RecoveryPoints.Renew(2);
    list.resize(2);
    list[0].timeText = "0.50";
    list[0].y = -0.25;
    list[1].timeText = "4.0";
    list[1].y = 0.608;
    EXPECT_EQ(PointInWords(recovery, 1, Mark::Ignore), "2: 4.0 min, 0.608 m, Ignore");
    EXPECT_EQ(PointInWords(recovery, 0, Mark::Use), "1: 0.50 min, -0.25 m, Use");
}

TEST(PlotWords, TellAPlotWithOrWithoutK) {
    Computation computation;
    computation.recovery.RecoveryPoints.Renew(3).resize(3);
    computation.recovery.bounds.PlotMaxTime = 354.9;
    computation.recovery.bounds.PlotYAxisMin = 0.001;
    computation.recovery.bounds.PlotYAxisMax = 1;
    computation.usedCount = 2;
    EXPECT_EQ(PlotInWords(computation, "3.6 m/day"),
              "3 points, 2 used in the fit. Hydraulic conductivity 3.6 m/day. Time from 0 to "
              "354.90 sec, Y from 0.001 to 1 in.");
    EXPECT_EQ(PlotInWords(computation, ""),
              "3 points, 2 used in the fit. Time from 0 to 354.90 sec, Y from 0.001 to 1 in.");
}

} // namespace
} // namespace quarnel
