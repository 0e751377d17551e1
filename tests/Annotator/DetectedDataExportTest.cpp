#include "Annotator/DetectedDataExport.h"

#include "Sim/XPAircraftInfo.h"
#include "Support/ModelBuilder.h"
#include "Support/TemporaryFolder.h"

#include <boost/filesystem.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

namespace fs = boost::filesystem;

/// A list in an order of the test's making; a cockpit is made as the real record makes it.
struct FixedList : Sim::AircraftListLoader {
    explicit FixedList(std::vector<std::string> paths) : acfPaths(std::move(paths)) {}
    Sim::AircraftList LoadAircraftList() override {
        Sim::AircraftList list;
        for (const std::string& path : acfPaths) {
            list.push_back(std::make_unique<Sim::XPAircraftInfo>());
            list.back()->acfPath = list.back()->displayName = path;
        }
        return list;
    }

    std::vector<std::string> acfPaths;
};

const std::string kTriangle = "VT 0 0 0 0 0 1 0 0\nVT 1 0 0 0 0 1 0 0\nVT 0 1 0 0 0 1 0 0\nIDX 0\nIDX 1\nIDX 2\n";
const std::string kFolder = "QVRA/AirLogs/1389-2a5530b-4/";

std::string PartXml(int node, int part, const std::string& type) {
    return "    <Part>\n        <NodeId>" + std::to_string(node) + "</NodeId>\n        <PartId>" +
           std::to_string(part) + "</PartId>\n        <InteractionType>" + type +
           "</InteractionType>\n        <EventType>Wheel</EventType>\n        <Reverse>0</Reverse>\n    </Part>\n";
}

std::string ListXml(const std::string& parts) {
    return "<NodePartList>\n" + parts + "</NodePartList>\n";
}

TEST(DetectedDataExportTest, WritesEveryPartOfEachAircraftInOrderAndSkipsOneThatFails) {
    Support::TemporaryFolder folder;
    const Support::WorkingDirectory here(folder.path);
    const std::pair<const char*, std::string> aircraft[] = {
        {"Aircraft/A/Big.Jet 1.2/jet",
         "TEXTURE a.png\n" + kTriangle +
             "TRIS 0 3\nATTR_manip_toggle hand 0 1 sim/t\nTRIS 0 3\nATTR_manip_none\nANIM_begin\n"
             "ANIM_trans 0 0 0 0 0 1 0 1 sim/x\nATTR_manip_drag_axis hand 0 0 1 0 1 sim/x\nTRIS 0 3\nANIM_end"},
        {"Aircraft/A/Plane/a", "TEXTURE a.png\n" + kTriangle + "TRIS 0 3\n"},
        {"Aircraft/A/Broken/b", kTriangle + "TRIS 0 3\n"},
        {"Aircraft/B/Plane/d", "TEXTURE a.png\n" + kTriangle + "ATTR_manip_toggle hand 0 1 sim/t\nTRIS 0 3\n"},
        {"Aircraft/A/Bare/c", ""},
    };
    FixedList list({});
    for (const auto& [path, object] : aircraft) {
        list.acfPaths.push_back(std::string(path) + ".acf");
        folder.Write(list.acfPaths.back(), "");
        if (!object.empty())
            folder.Write(std::string(path) + "_cockpit.obj", object);
    }
    folder.Write(kFolder + "Broken.xml", "of an earlier run");
    for (int run : {1, 2}) {
        const Annotator::ExportResult result = Annotator::SaveDetectedData(list);
        EXPECT_EQ(result.files, 4u);
        EXPECT_THAT(result.failed, testing::ElementsAre(testing::StartsWith("Aircraft/A/Broken/b.acf (")));
        EXPECT_EQ(folder.Read(kFolder + "Big.Jet 1.xml"),
                  ListXml(PartXml(0, 0, "None") + PartXml(0, 1, "Tap") + PartXml(1, 0, "Move")))
            << run;
        EXPECT_EQ(folder.Read(kFolder + "Plane.xml"), ListXml(PartXml(0, 0, "Tap"))) << "the later of two stems";
        EXPECT_EQ(folder.Read(kFolder + "Broken.xml"), "of an earlier run");
        EXPECT_EQ(folder.Read(kFolder + "Bare.xml"), "<NodePartList/>\n") << "without a cockpit object";
    }
}

TEST(DetectedDataExportTest, WhatEndsTheRunAndWhatDoesNot) {
    Support::TemporaryFolder folder;
    const Support::WorkingDirectory here(folder.path);
    folder.Write("Aircraft/A/Plane/a.acf", "");
    fs::create_directories(folder.path / (kFolder + "Plane.xml"));
    FixedList list({"Aircraft/A/Plane/a.acf"});
    EXPECT_EQ(Annotator::SaveDetectedData(list).failed.size(), 1u)
        << "a folder where the file should be is passed over";

    folder.Write("Aircraft/A/Bad/b.acf", "P acf/_pe_xyz/0 far\n");
    FixedList bad({"Aircraft/A/Bad/b.acf"});
    EXPECT_THROW(Annotator::SaveDetectedData(bad), Annotator::AircraftExportError) << "a pilot's eye that is no number";

    Support::TemporaryFolder blocked;
    const Support::WorkingDirectory there(blocked.path);
    blocked.Write("QVRA", "a file where the folder should be");
    EXPECT_THROW(Annotator::SaveDetectedData(list), fs::filesystem_error);
}

} // namespace
