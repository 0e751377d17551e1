#include "CockpitModel/Annotations/AnnotationStore.h"

#include "CockpitModel/Annotations/AnnotationXml.h"
#include "CockpitModel/SceneGraph.h"
#include "Support/MadeAircraft.h"
#include "Support/TemporaryFolder.h"
#include "Utils/RangeCheck.h"

#include <gtest/gtest.h>

namespace CockpitModel {

namespace {

using Type = TouchInteractionType;

/// A scene of two nodes: one part in the root, two below.
class AnnotationStoreTest : public testing::Test {
protected:
    static ModelData Model() {
        Support::ModelBuilder builder;
        const int node = builder.Node(0);
        for (const int owner : {0, node, node})
            builder.Part(owner, Support::TriangleAt(0));
        return builder.model;
    }

    NodePart& Part(std::size_t node, std::size_t part) { return *scene.Nodes()[node]->parts[part]; }

    void Read(const std::string& xml) {
        folder.Write("a.xml", xml);
        store.Read(folder / "a.xml");
    }
    /// Reads one record for part 0 of node 0 with these additional elements.
    AnnotationRecord ReadRecord(const std::string& elements) {
        Read("<Overrides><Override><NodeId>0</NodeId><PartId>0</PartId>" + elements + "</Override></Overrides>");
        return store.Get(Part(0, 0)).value_or(AnnotationRecord{});
    }
    std::string Written() {
        EXPECT_TRUE(store.Write(folder / "out.xml"));
        return folder.Read("out.xml");
    }

    Support::TemporaryFolder folder;
    Support::ModelCockpit cockpit{Model()};
    SceneGraph scene{cockpit.model, cockpit, nullptr};
    AnnotationStore store{scene};
};

std::string PathFor(const std::string& acfPath) {
    return AnnotationPath(Support::MadeAircraft("any", acfPath, {}));
}

} // namespace

TEST_F(AnnotationStoreTest, WritesFilledSlotsInTheirOrder) {
    EXPECT_EQ(Written(), "<Overrides/>\n");
    store.Set(Part(1, 1), AnnotationRecord{.NodeId = 1, .PartId = 1, .Tooltip = " \t"});
    store.Set(Part(0, 0), AnnotationRecord{.NodeId = 0,
                                           .PartId = 0,
                                           .InteractionType = Type::Radio,
                                           .InteractionTypeTest = Type::YokePart,
                                           .EventType = TouchEventType::LClickRClick,
                                           .Reverse = true,
                                           .Tooltip = "A < B & \"C\""});
    EXPECT_EQ(Written(), "<Overrides>\n"
                         "    <Override>\n"
                         "        <NodeId>0</NodeId>\n"
                         "        <PartId>0</PartId>\n"
                         "        <InteractionType>Radio</InteractionType>\n"
                         "        <InteractionTypeTest>YokePart</InteractionTypeTest>\n"
                         "        <EventType>LClick/RClick</EventType>\n"
                         "        <Tooltip>A &lt; B &amp; \"C\"</Tooltip>\n"
                         "        <Reverse>1</Reverse>\n"
                         "    </Override>\n"
                         "    <Override>\n"
                         "        <NodeId>1</NodeId>\n"
                         "        <PartId>1</PartId>\n"
                         "        <Tooltip><![CDATA[ \t]]></Tooltip>\n"
                         "        <Reverse>0</Reverse>\n"
                         "    </Override>\n"
                         "</Overrides>\n");
    const std::vector<AnnotationRecord> before = store.ListAll();
    AnnotationStore other(scene);
    other.Read(folder / "out.xml");
    EXPECT_EQ(other.ListAll(), before);
}

TEST_F(AnnotationStoreTest, ReadsFieldsAndSkipsUnknownWords) {
    const struct {
        const char* elements;
        AnnotationRecord record;
    } rows[] = {
        {"<InteractionType>Push</InteractionType>", {0, 0, Type::Tap}},
        {"<InteractionType>tap</InteractionType><EventType>Wheel</EventType>", {0, 0, {}, {}, TouchEventType::Wheel}},
        {"<InteractionTypeTest>Turn</InteractionTypeTest><Reverse>1</Reverse>", {0, 0, {}, {}, {}, true}},
        {"<Tooltip><![CDATA[a<b]]></Tooltip>", {0, 0, {}, {}, {}, false, "a<b"}},
        {"<Tooltip><!-- -->late</Tooltip>", {0, 0, {}, {}, {}, false, ""}},
        {"<Tooltip>one<b/>two</Tooltip><Tooltip>second</Tooltip>", {0, 0, {}, {}, {}, false, "one"}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(ReadRecord(row.elements), row.record) << row.elements;
    for (const char* no : {"true", "0", "2", ""})
        EXPECT_FALSE(ReadRecord("<Reverse>" + std::string(no) + "</Reverse>").Reverse) << no;
    for (const char* yes : {" 1", "01", "1x"})
        EXPECT_TRUE(ReadRecord("<Reverse>" + std::string(yes) + "</Reverse>").Reverse) << yes;
}

TEST_F(AnnotationStoreTest, DropsRecordsOfMissingParts) {
    const struct {
        const char* nodeId;
        const char* partId;
        bool kept;
    } rows[] = {
        {" 1", "\n0 ", true}, {"+1", "0x9", true}, {"1.9", "0,5", true}, {"2", "0", false},
        {"1", "2", false},    {"-1", "0", false},  {"1", "none", false}, {"1", "4294967296", false},
    };
    for (const auto& row : rows) {
        store.Set(Part(1, 0), std::nullopt);
        Read("<Overrides><Override><NodeId>" + std::string(row.nodeId) + "</NodeId><PartId>" + row.partId +
             "</PartId></Override></Overrides>");
        EXPECT_EQ(store.Get(Part(1, 0)).has_value(), row.kept) << row.nodeId << " / " << row.partId;
        EXPECT_EQ(store.ListAll().size(), row.kept ? 1u : 0u) << row.nodeId << " / " << row.partId;
    }
    Read("<Overrides><Override><PartId>0</PartId></Override><Override><NodeId>1</NodeId></Override></Overrides>");
    EXPECT_TRUE(store.ListAll().empty());
}

TEST_F(AnnotationStoreTest, BacksUpContentThatASaveWouldLose) {
    const std::string first = "<Override><NodeId>0</NodeId><PartId>0</PartId><Reverse>0</Reverse></Override>";
    const std::string far = "<Override><NodeId>7</NodeId><PartId>0</PartId><Reverse>0</Reverse></Override>";
    const auto with = [&](const std::string& more) { return "<Override><NodeId>0</NodeId>" + more + "</Override>"; };
    const std::string tooltip = with("<PartId>0</PartId><InteractionType>Tap</InteractionType><Tooltip></Tooltip>");
    const struct {
        const char* name;
        bool kept;
        std::string read;                                ///< the elements when the file is read; no file if empty
        std::optional<std::string> saved = std::nullopt; ///< when it is overwritten, if changed by then
    } rows[] = {
        {"all of it read", false, first},
        {"made by the save", false, ""},
        {"not well-formed", true, first + "<Over"},
        {"a record of a part that is gone", true, far},
        {"a comment", true, "<!-- mine -->" + first},
        {"spelt and ordered in another way meanwhile", false, tooltip,
         with("\n<InteractionType>Push</InteractionType><Tooltip/><Reverse>00</Reverse><PartId> +0\n</PartId>")},
        {"the record that the save adds", false, first,
         first + "<Override><NodeId>1</NodeId><PartId>1</PartId></Override>"},
        {"another record meanwhile", true, first, tooltip},
        {"a record before another of its part", true, tooltip + first},
        {"an unknown word", true, with("<PartId>0</PartId><EventType>Turn</EventType>")},
        {"more than the number", true, with("<PartId>0x0</PartId>")},
        {"an element twice", true, with("<PartId>0</PartId><Tooltip/><Tooltip/>")},
        {"more than the text", true, with("<PartId>0</PartId><Tooltip>one<b/></Tooltip>")},
        {"an attribute", true, with("<PartId by='me'>0</PartId>")},
        {"an unknown element", true, "<Other/>"},
    };
    for (const auto& row : rows) {
        const Support::TemporaryFolder place;
        AnnotationStore saver(scene);
        const auto write = [&](const std::string& elements) {
            boost::filesystem::remove(place / "a.xml");
            if (!elements.empty())
                place.Write("a.xml", "<?xml version=\"1.0\"?>\n<Overrides>" + elements + "</Overrides>");
            return place.Read("a.xml");
        };
        write(row.read);
        saver.Read(place / "a.xml");
        const std::string present = write(row.saved.value_or(row.read));
        saver.Set(Part(1, 1), AnnotationRecord{1, 1});
        EXPECT_TRUE(saver.Write(place / "a.xml")) << row.name;
        EXPECT_EQ(saver.BackupPath(), row.kept ? place / "a.xml.kept-1" : "") << row.name;
        EXPECT_EQ(place.Read("a.xml.kept-1"), row.kept ? present : "") << row.name;
        EXPECT_EQ(ReadAnnotations(place / "a.xml"), saver.ListAll()) << row.name;

        EXPECT_TRUE(saver.Write(place / "a.xml")) << row.name;
        EXPECT_EQ(saver.BackupPath(), "") << row.name << ", saved again";
        place.Write("a.xml", "changed");
        EXPECT_TRUE(saver.Write(place / "a.xml")) << row.name;
        EXPECT_EQ(place.Read(row.kept ? "a.xml.kept-2" : "a.xml.kept-1"), "changed") << row.name;
    }
    // If the file cannot be written or copied, nothing changes.
    folder.Write("folder/inside", "kept");
    const auto result = store.Write(folder / "folder");
    EXPECT_NE(result.error.find("Is a directory"), std::string::npos) << result.error;
    EXPECT_EQ(folder.Read("folder/inside"), "kept");
    folder.Write("b.xml", "kept");
    boost::filesystem::create_symlink("nowhere/at all", folder / "b.xml.kept-1");
    EXPECT_FALSE(store.Write(folder / "b.xml"));
    EXPECT_EQ(folder.Read("b.xml"), "kept");
}

TEST_F(AnnotationStoreTest, AcceptsAnyRootAndUsesTheLaterOfTwoRecords) {
    Read("<?xml version=\"1.0\"?><Other><Overrides/><Override><NodeId>1</NodeId><PartId>1</PartId>"
         "<Tooltip>first</Tooltip><Reverse>1</Reverse></Override><override/>"
         "<Override><NodeId>1</NodeId><PartId>1</PartId><EventType>Wheel</EventType></Override></Other>");
    const std::vector<AnnotationRecord> expected = {{1, 1, {}, {}, TouchEventType::Wheel}};
    EXPECT_EQ(store.ListAll(), expected);
    std::string deep;
    for (int i = 0; i < 1'000'000; ++i)
        deep += "<Override>";
    for (const std::string& xml : {std::string(), std::string("\0<a/>", 5), deep})
        Read(xml);
    store.Read(folder / "missing.xml");
    store.Read(folder.path.string());
    EXPECT_EQ(store.ListAll(), expected);
}

TEST_F(AnnotationStoreTest, ComparesTheDetectedTypeWithTheExpectation) {
    NodePart& part = Part(1, 0);
    part.InteractionType = Type::Twist;
    const std::tuple<AnnotationRecord, bool, bool> rows[] = {
        {{1, 0, Type::Tap}, false, false},
        {{1, 0, Type::Tap, Type::Twist}, true, true},
        {{1, 0, Type::Twist, Type::Tap}, true, false},
    };
    for (const auto& [record, hasTest, testPassed] : rows) {
        store.Set(part, record);
        const PartEvaluation evaluation = store.Evaluate(part);
        EXPECT_EQ(evaluation.hasTest, hasTest);
        EXPECT_EQ(evaluation.testPassed, std::optional(testPassed));
    }
}

TEST_F(AnnotationStoreTest, RejectsPartsOutsideTheTable) {
    Node stranger;
    NodePart part;
    part.node = &stranger;
    for (const auto& [node, id] : {std::pair(0, 1), {2, 0}, {-1, 0}}) {
        stranger.index = node;
        part.id = id;
        EXPECT_THROW(store.Get(part), Utils::OutOfRange) << node << ' ' << id;
    }
}

TEST(AnnotationPath, NamesTheFileAfterTheFolder) {
    const Support::TemporaryFolder installation;
    const Support::WorkingDirectory inside(installation.path);
    EXPECT_EQ(PathFor("G/Plain"), "QVRA/Annotations/Plain.xml");
    EXPECT_FALSE(boost::filesystem::exists("QVRA"));
    boost::filesystem::create_directory("QVRA");
    EXPECT_EQ(PathFor("G/Big.Jet 1.2"), "QVRA/Annotations/Big.Jet 1.xml");
    EXPECT_TRUE(boost::filesystem::is_directory("QVRA/Annotations"));
}

} // namespace CockpitModel
