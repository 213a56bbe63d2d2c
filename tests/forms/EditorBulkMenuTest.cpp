// The editor's bulk menus on the desktop: each entry reaches its command,
// and the grid, the lists and the counters show the store afterwards.
#include <gtest/gtest.h>

#include <QAction>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>
#include <QTest>
#include <QTimer>

#include <filesystem>
#include <unistd.h>

#include "editor/ExifTestSupport.h"
#include "editor/ModuleEditor.h"
#include "forms/EditorTableModel.h"
#include "forms/FormEditor.h"
#include "forms/FormTrackZeit.h"
#include "forms/FrameWPColor.h"
#include "forms/GuiSupport.h"

namespace ortelix {
namespace {

using testgui::StartedMainForm;
using testgui::Text;

TrackPoint Point(double lat, int seconds) {
    TrackPoint p;
    p.Lon = 10;
    p.Lat = lat;
    p.Date_ = 38764;  // 16.02.2006
    p.Time_ = seconds;
    return p;
}

FormEditor* OpenWith(StartedMainForm& m) {
    Track t{"Runde", {}};
    for (int i = 0; i < 6; ++i) t.Points.push_back(Point(50 + 0.001 * i, 36000 + 60 * i));
    m.session.store.Tracks = {t};
    GeoPoint w;
    w.Lat = 48.5;
    w.Lon = 11.25;
    w.Name = "Hütte";
    m.session.store.WayPoints = {w, w};
    m.form.runCommand("MenEinEditor");
    QApplication::processEvents();
    return m.form.findChild<FormEditor*>();
}

void SelectRows(FormEditor& f, int gridRow1, int gridRow2) {
    const QModelIndex a = f.model()->index(gridRow1 - 1, 1), b = f.model()->index(gridRow2 - 1, 1);
    f.grid()->selectionModel()->setCurrentIndex(a, QItemSelectionModel::NoUpdate);
    f.grid()->selectionModel()->select(QItemSelection(a, b), QItemSelectionModel::ClearAndSelect);
}

QAction* Action(FormEditor& f, const char* name) { return f.findChild<QAction*>(QString::fromUtf8(name)); }

TEST(EditorBulkMenu, CommandsChangeTheStoreAndTheGridListsAndCountersFollow) {
    StartedMainForm m;
    FormEditor* f = OpenWith(m);
    ASSERT_NE(f, nullptr);
    ASSERT_EQ(f->model()->rowCount(), 6);
    auto* tracks = f->findChild<QListWidget*>("ListTrack");
    ASSERT_NE(tracks, nullptr);
    ASSERT_EQ(tracks->count(), 1);

    // Split at grid row 3: the new track is listed, chosen and shown.
    SelectRows(*f, 3, 3);
    Action(*f, "MenArrTrennen")->trigger();
    ASSERT_EQ(m.session.store.Tracks.size(), 2u);
    EXPECT_EQ(tracks->count(), 2);
    EXPECT_EQ(tracks->currentRow(), 1);
    EXPECT_EQ(f->model()->rowCount(), 4);
    EXPECT_EQ(f->findChild<QLabel*>("LabelMaxTacks")->text(), "2");

    // Rows 1 and 2 of the new track deleted; the grid is two rows shorter.
    SelectRows(*f, 2, 1);
    Action(*f, "MenZeileDel")->trigger();
    EXPECT_EQ(m.session.store.Tracks[1].Points.size(), 2u);
    EXPECT_EQ(f->model()->rowCount(), 2);

    // "Track zu Waypoint": the counter of the waypoints follows.
    Action(*f, "MenTrZuWp")->trigger();
    EXPECT_EQ(m.session.store.WayPoints.size(), 4u);
    EXPECT_EQ(f->findChild<QLabel*>("LabelMaxWP")->text(), "4");

    // A rename in the waypoint view, shown in the grid at once.
    f->findChild<QRadioButton*>("OptionNMEA2")->click();
    Action(*f, "MenUml")->trigger();
    EXPECT_EQ(m.session.store.WayPoints[0].Name, "Huette");
    EXPECT_EQ(f->model()->data(f->model()->index(0, 3), Qt::DisplayRole).toString(), "Huette");

    // The TTQV clipboard of the marked row.
    SelectRows(*f, 1, 1);
    Action(*f, "MenEdKoordClip")->trigger();
    EXPECT_EQ(m.platform.clipboard, "N 48.500000°, O 11.250000 °");
}

// "Digicam" with the folder filter: each photo of the folder on the track by
// its DateTime less the camera offset of the main form; the waypoint view
// and its counter show the new waypoints at once.
TEST(EditorBulkMenu, DigicamPlacesTheFoldersPhotosAndTheWaypointViewFollows) {
    const auto dir = std::filesystem::temp_directory_path() / ("ortelix-digicam-menu-" + std::to_string(::getpid()));
    std::filesystem::remove_all(dir);
    std::filesystem::create_directories(dir);
    const testing::ExifBuilder b(false);
    auto photo = [&](const std::string& name, const std::string& dateTime) {
        testing::WriteBytes(dir / name, testing::JpegWithExif(b.tiff({{b.ascii(306, dateTime)}})));
    };
    photo("b Gipfel.JPG", "2006:02:16 11:04:00");
    photo("a.jpg", "2006:02:16 11:02:00");
    photo("spaet.jpg", "2006:02:16 13:00:00");  // outside the track's times
    photo("c.png", "2006:02:16 11:03:00");      // not a "jpg": not looked at

    StartedMainForm m;
    FormEditor* f = OpenWith(m);
    ASSERT_NE(f, nullptr);
    QAction* digicam = Action(*f, "MenEdDigiCam");
    ASSERT_NE(digicam, nullptr);
    EXPECT_TRUE(digicam->isEnabled());
    m.session.options.TextZeit[2] = "01:00:00";  // the camera runs an hour ahead
    f->findChild<QRadioButton*>("OptionNMEA2")->click();
    ASSERT_EQ(f->model()->rowCount(), 2);
    m.platform.fileChoices.push_back({(dir / "a.jpg").string(), 2});
    digicam->trigger();

    auto& w = m.session.store.WayPoints;
    ASSERT_EQ(w.size(), 4u);
    EXPECT_EQ(w[2].Name, "a");
    EXPECT_DOUBLE_EQ(w[2].Lat, 50.002);
    EXPECT_EQ(*w[2].Time_, 36000 + 120);
    EXPECT_EQ(w[3].Name, "b Gipfel");
    EXPECT_DOUBLE_EQ(w[3].Lat, 50.004);
    EXPECT_EQ(w[3].Cmt, "<a href='file://" + dir.string() + "/b%20Gipfel.JPG'>Bild</a>");
    EXPECT_EQ(f->model()->rowCount(), 4);
    EXPECT_EQ(f->model()->data(f->model()->index(2, 3), Qt::DisplayRole).toString(), "a");
    EXPECT_EQ(f->findChild<QLabel*>("LabelMaxWP")->text(), "4");

    // Cancelled dialog: nothing changes.
    m.platform.fileChoices.push_back({"", 1});
    digicam->trigger();
    EXPECT_EQ(w.size(), 4u);
    std::filesystem::remove_all(dir);
}

TEST(EditorBulkMenu, WebMapButtonUsesTheKeysHeldAtThePress) {
    StartedMainForm m;
    FormEditor* f = OpenWith(m);
    f->findChild<QRadioButton*>("OptionNMEA2")->click();
    m.platform.settings[{"internet", "KartenServer2"}] = "https://zwei.example";
    auto* web = f->findChild<QPushButton*>("CommandInternetKarte");
    ASSERT_TRUE(web->isEnabled());
    EXPECT_FALSE(f->findChild<QPushButton*>("CommandGE")->isEnabled());
    SelectRows(*f, 1, 2);
    QTest::mouseClick(web, Qt::LeftButton, Qt::ControlModifier);
    ASSERT_EQ(m.platform.opened.size(), 1u);
    EXPECT_EQ(m.platform.opened[0], "https://zwei.example/map?lat=48.500000&lon=11.250000&z=18&mt=1");
    QTest::mouseClick(web, Qt::LeftButton);
    ASSERT_EQ(m.platform.opened.size(), 2u);
    EXPECT_EQ(m.platform.opened[1].rfind("https://maps.google.de/maps?f=q&hl=de&q=48.500000,11.250000", 0), 0u);
}

TEST(EditorBulkMenu, ColourPanelAndTrackTimesForm) {
    StartedMainForm m;
    FormEditor* f = OpenWith(m);
    f->resize(900, 500);
    f->findChild<QRadioButton*>("OptionNMEA2")->click();
    Action(*f, "MenFarbwWP")->trigger();
    auto* panel = f->findChild<FrameWPColor*>("FrameWPColor");
    ASSERT_NE(panel, nullptr);
    EXPECT_TRUE(panel->isVisible());
    panel->setColours(255, 65280);
    SelectRows(*f, 2, 2);
    panel->findChild<QPushButton*>("Command1")->click();
    EXPECT_TRUE(m.session.store.WayPoints[0].ForeColor.empty());
    EXPECT_EQ(*m.session.store.WayPoints[1].ForeColor, 255);
    EXPECT_EQ(*m.session.store.WayPoints[1].BackColor, 65280);
    f->grab().save(QString(ORTELIX_BUILD_DIR) + "/editor-colour-panel.png");
    panel->findChild<QPushButton*>("Command2")->click();
    EXPECT_FALSE(panel->isVisible());

    // "Neue Trackzeiten": a fixed interval of 30 s, typed with a comma.
    f->findChild<QRadioButton*>("OptionNMEA0")->click();
    QTimer::singleShot(0, [&] {
        auto* form = qobject_cast<FormTrackZeit*>(QApplication::activeModalWidget());
        ASSERT_NE(form, nullptr);
        EXPECT_EQ(form->windowTitle(), "Track anpassen");
        form->findChild<QRadioButton*>("Opt1")->setChecked(true);
        auto* time = form->findChild<QLineEdit*>("TxtTime");
        QTest::keyClicks(time, "30,0");
        EXPECT_EQ(time->text(), "30.0");
        form->grab().save(QString(ORTELIX_BUILD_DIR) + "/editor-track-zeit.png");
        form->findChild<QPushButton*>("CmdOK")->click();
    });
    Action(*f, "MenNeuTrackZeit")->trigger();
    const auto& pts = m.session.store.Tracks[0].Points;
    for (size_t i = 0; i < pts.size(); ++i) EXPECT_EQ(*pts[i].Time_, 36000 + 30 * static_cast<int>(i)) << i;
    EXPECT_EQ(f->model()->data(f->model()->index(1, 7), Qt::DisplayRole).toString(), "10:00:30");
}

}  // namespace
}  // namespace ortelix
