// The height profile window: opened by "TEST" in the editor, the profile of
// the selected track drawn to the window's size, again on every resize from
// the same data, beside the altitude axis and the track's totals.
#include <gtest/gtest.h>

#include <QImage>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <cmath>
#include <numbers>

#include "core/ModulShared.h"
#include "editor/EditorTestSupport.h"
#include "editor/ModuleEditor.h"
#include "forms/FormEditor.h"
#include "forms/FormTrackAnalyse.h"
#include "forms/GuiSupport.h"

namespace ortelix {
namespace {

using testing::MinuteTrack;

using testgui::StartedMainForm;


bool IsRed(QRgb c) { return qRed(c) > 200 && qGreen(c) < 80 && qBlue(c) < 80; }
bool IsGreen(QRgb c) { return qGreen(c) > 200 && qRed(c) < 80 && qBlue(c) < 80; }

// Red pixels within a few pixels of a point of the profile.
bool Near(const QImage& img, QPointF at, bool (*is)(QRgb)) {
    for (int dx = -2; dx <= 2; ++dx)
        for (int dy = -2; dy <= 2; ++dy) {
            const QPoint p(static_cast<int>(std::lround(at.x())) + dx, static_cast<int>(std::lround(at.y())) + dy);
            if (img.rect().contains(p) && is(img.pixel(p))) return true;
        }
    return false;
}
bool RedNear(const QImage& img, QPointF at) { return Near(img, at, IsRed); }

bool RedIn(const QImage& img, QRect r) {
    for (int y = r.top(); y <= r.bottom(); ++y)
        for (int x = r.left(); x <= r.right(); ++x)
            if (img.rect().contains(x, y) && IsRed(img.pixel(x, y))) return true;
    return false;
}

QPointF Pixel(const FormTrackAnalyse& a, int x, int y) {
    const QRect s = a.surface();
    return {s.left() + x * s.width() / double(a.drawing().width), s.top() + y * s.height() / 500.0};
}

struct OpenedProfile {
    StartedMainForm m;
    FormEditor* editor = nullptr;
    FormTrackAnalyse* analysis = nullptr;

    explicit OpenedProfile(Track t) {
        m.session.store.Tracks.push_back(MinuteTrack({{0, 10}}));
        t.Name = "Rundweg";
        m.session.store.Tracks.push_back(std::move(t));
        m.form.runCommand("MenEinEditor");
        editor = m.form.findChild<FormEditor*>();
        editor->findChild<QListWidget*>("ListTrack")->setCurrentRow(1);
        QTest::mouseClick(editor->findChild<QPushButton*>("CommandTrackAnalyse"), Qt::LeftButton);
        analysis = editor->analysis();
        if (analysis) {
            analysis->resize(900, 420);
            QApplication::processEvents();
        }
    }
};

TEST(TrackAnalyse, TestButtonDrawsTheProfileOfTheSelectedTrackWithItsTotals) {
    // 4.55 km in 15 minutes with a stay of 12 minutes near 2 km, one point
    // without altitude.
    Track t = MinuteTrack({{0, 120}, {1000, 180}, {2050, {}}, {2090, 220}, {2110, 230}, {3050, 450}, {4550, 300}});
    t.Points[4].Time_ = t.Points[3].Time_.value() + 600;
    for (size_t i = 5; i < t.Points.size(); ++i) t.Points[i].Time_ = t.Points[i - 1].Time_.value() + 60;
    OpenedProfile o(std::move(t));
    ASSERT_NE(o.analysis, nullptr);
    FormTrackAnalyse& a = *o.analysis;
    EXPECT_TRUE(a.isVisible());
    EXPECT_TRUE(a.isWindow());
    EXPECT_EQ(a.windowTitle(), QString::fromUtf8("Trackanalyse – Rundweg"));
    EXPECT_EQ(o.editor->editor().element(), 1);  // the grid shows the drawn track

    const ProfilDrawing& d = a.drawing();
    EXPECT_EQ(d.width, 45);
    std::vector<int> kmMarks;
    for (const ProfilLine& l : d.lines)
        if (l.colour == kProfilGreen) kmMarks.push_back(l.x1);
    EXPECT_EQ(kmMarks, (std::vector<int>{0, 10, 20, 30, 40}));

    // On the screen: the track's corners in red where the scale puts them,
    // the point without altitude on the bottom edge, the kilometre marks green.
    const QImage img = a.canvas()->grab().toImage();
    EXPECT_TRUE(RedNear(img, Pixel(a, 0, 380)));
    EXPECT_TRUE(RedNear(img, Pixel(a, 20, 500)));
    EXPECT_TRUE(RedNear(img, Pixel(a, 45, 200)));
    EXPECT_FALSE(RedNear(img, Pixel(a, 30, 100)));
    EXPECT_TRUE(Near(img, Pixel(a, 30, 480), IsGreen));
    EXPECT_TRUE(Near(img, Pixel(a, 40, 460), IsGreen));
    EXPECT_FALSE(Near(img, Pixel(a, 45, 460), IsGreen));

    // The totals beside it, from the same walk as the grid's columns.
    const QString totals = a.findChild<QLabel*>("LabelTotals")->text();
    const TrackTotals sums = o.editor->editor().trackTotals();
    EXPECT_NEAR(sums.lengthKm, 4.55, 0.01);
    EXPECT_EQ(sums.durationSeconds, 900);
    // From the anchor at 2.05 km to the first point more than 100 m away.
    EXPECT_EQ(sums.pauseSeconds, 720);
    EXPECT_EQ(sums.minAlt, 120);
    EXPECT_EQ(sums.maxAlt, 450);
    EXPECT_TRUE(totals.contains(QString::fromStdString(FormatFixed(sums.lengthKm, 3)) + " km")) << totals.toStdString();
    EXPECT_TRUE(totals.contains("4.5")) << totals.toStdString();
    EXPECT_TRUE(totals.contains("0:15:00")) << totals.toStdString();
    EXPECT_TRUE(totals.contains("0:12:00")) << totals.toStdString();
    EXPECT_TRUE(totals.contains("0:03:00")) << totals.toStdString();  // moving
    EXPECT_TRUE(totals.contains("330 m")) << totals.toStdString();

    ASSERT_TRUE(a.grab().save(QString(ORTELIX_BUILD_DIR) + "/FormTrackAnalyse.png"));
}

TEST(TrackAnalyse, ResizeDrawsAgainFromTheSameDataAndCutsAtTheTop) {
    OpenedProfile o(MinuteTrack({{0, 100}, {1550, 650}, {3050, 250}, {4550, 480}}));
    ASSERT_NE(o.analysis, nullptr);
    FormTrackAnalyse& a = *o.analysis;
    const std::vector<ProfilLine> before = a.drawing().lines;
    a.canvas()->grab();
    const int paints = a.paints();
    const QRect small = a.surface();

    a.resize(1300, 700);
    QApplication::processEvents();
    const QImage img = a.canvas()->grab().toImage();
    EXPECT_GT(a.paints(), paints);
    EXPECT_EQ(a.drawing().lines, before);
    EXPECT_GT(a.surface().width(), small.width());
    EXPECT_GT(a.surface().height(), small.height());
    EXPECT_TRUE(RedNear(img, Pixel(a, 0, 400)));
    EXPECT_TRUE(RedNear(img, Pixel(a, 30, 250)));
    // 650 m lies above the surface: the line leaves it at the top and nothing
    // red is drawn above.
    for (int y = 0; y < a.surface().top(); ++y)
        for (int x = 0; x < img.width(); ++x) ASSERT_FALSE(IsRed(img.pixel(x, y))) << x << "," << y;
    // It crosses the top edge near units 10.9 and 20.6 and is red there.
    const int top = a.surface().top();
    EXPECT_TRUE(RedIn(img, QRect(QPoint(int(Pixel(a, 10, 0).x()), top), QPoint(int(Pixel(a, 12, 0).x()), top + 2))));
    EXPECT_TRUE(RedIn(img, QRect(QPoint(int(Pixel(a, 20, 0).x()), top), QPoint(int(Pixel(a, 22, 0).x()), top + 2))));
    EXPECT_FALSE(RedIn(img, QRect(QPoint(int(Pixel(a, 14, 0).x()), top), QPoint(int(Pixel(a, 17, 0).x()), top + 2))));
}

TEST(TrackAnalyse, NoTrackNoWindow) {
    StartedMainForm m;
    m.session.store.WayPoints.push_back(GeoPoint{});
    m.form.runCommand("MenEinEditor");
    FormEditor* editor = m.form.findChild<FormEditor*>();
    ASSERT_NE(editor, nullptr);
    QTest::mouseClick(editor->findChild<QPushButton*>("CommandTrackAnalyse"), Qt::LeftButton);
    EXPECT_EQ(editor->analysis(), nullptr);
}

}  // namespace
}  // namespace ortelix
