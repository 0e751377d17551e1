#include "Annotator/FailureTexts.h"

#include "Sim/XPAircraftInfo.h"
#include "Support/FatalErrorRecorder.h"
#include "Support/TemporaryFolder.h"
#include "Utils/FatalError.h"
#include "Utils/RangeCheck.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::AllOf;
using testing::HasSubstr;

TEST(FailureTexts, ContainTheReasonOfEachKindOfError) {
    const boost::filesystem::filesystem_error noRight("opening", "Aircraft/Props",
                                                      make_error_code(boost::system::errc::permission_denied));
    EXPECT_EQ(Annotator::ReasonText(noRight), "Aircraft/Props: Permission denied");
    EXPECT_EQ(Annotator::ReasonText(Utils::OutOfRange("a.obj(3): no material")), "a.obj(3): no material");
    EXPECT_EQ(Annotator::ReasonText(Utils::OutOfRange()), "invalid vector<T> subscript");
    EXPECT_EQ(Annotator::ReasonText(std::runtime_error("why")), "why");
    const Support::FatalErrorRecorder dialogs;
    EXPECT_THROW(Utils::FatalError("Annotator\\Some.cpp", 1), std::exception);
    EXPECT_THAT(Annotator::ReasonText(std::exception()), HasSubstr("fatal error"));
}

TEST(FailureTexts, ContainTheFolderOrFile) {
    const Support::TemporaryFolder folder;
    const Support::WorkingDirectory inside(folder.path);
    const std::runtime_error error("why");
    EXPECT_THAT(Annotator::ScanFailureText(error), AllOf(HasSubstr(folder / "Aircraft\n"), HasSubstr("why")));
    EXPECT_THAT(Annotator::ExportFailureText(error),
                AllOf(HasSubstr(folder / "QVRA/AirLogs/1389-2a5530b-4"), HasSubstr("why")));
    EXPECT_THAT(Annotator::ExportFailureText(Annotator::AircraftExportError("Cub (cub.acf): why")),
                AllOf(HasSubstr("\nCub (cub.acf): why"), testing::Not(HasSubstr(folder / "QVRA"))));
    EXPECT_EQ(Annotator::ExportDoneText({.files = 1, .failed = {"Cub (cub.acf): why"}}),
              "1 file was saved in this folder:\n" + folder / "QVRA/AirLogs/1389-2a5530b-4" +
                  "\n\nNot saved:\nCub (cub.acf): why");
    EXPECT_THAT(Annotator::SaveFailureText("QVRA/Annotations/A.xml", "disk full"),
                AllOf(HasSubstr(folder / "QVRA/Annotations/A.xml"), HasSubstr("disk full")));
    Sim::XPAircraftInfo info;
    info.displayName = "Cub";
    info.acfPath = "Aircraft/Props/Cub/cub.acf";
    for (const std::string reason : {"why", "Aircraft/Props/Cub/cub.acf: why"})
        EXPECT_EQ(Annotator::LoadFailureText(info, std::runtime_error(reason)),
                  "Cub cannot be loaded:\nAircraft/Props/Cub/cub.acf\n\nwhy");
}

} // namespace
