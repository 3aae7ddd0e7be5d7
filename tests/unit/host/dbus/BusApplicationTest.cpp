// The calls of the desktop, without a bus: files and tokens.
#include "host/dbus/BusApplication.h"

#include <gmock/gmock.h>

#include <QVariantMap>

#include <string>
#include <vector>

using namespace velorin::host;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class TheDesktop : public testing::Test {
protected:
    TheDesktop() {
        application.onActivate = [this](const std::string& token) { activations.push_back(token); };
        application.onOpen = [this](const std::vector<std::string>& files,
                                    const std::string& token) {
            opened = files;
            openToken = token;
        };
    }

    [[nodiscard]] std::vector<std::string> open(const QStringList& uris) {
        application.Open(uris, {});
        return opened;
    }

    BusApplication application;
    std::vector<std::string> activations;
    std::vector<std::string> opened;
    std::string openToken;
};

} // namespace

TEST_F(TheDesktop, GivesFilesAsUris) {
    EXPECT_THAT(open({"file:///home/ann/waltz.sng"}), ElementsAre("/home/ann/waltz.sng"));
    EXPECT_THAT(open({"file:///a/my%20song.sng", "file:///b.sng"}),
                ElementsAre("/a/my song.sng", "/b.sng"));
    EXPECT_THAT(open({"file:///a/100%25%20%232.sng"}), ElementsAre("/a/100% #2.sng"));
    EXPECT_THAT(open({"file:///a/f%C3%BCr%20Elise.sng"}), ElementsAre("/a/f\xC3\xBCr Elise.sng"));
    EXPECT_THAT(open({"file:///a/für Elise.sng"}), ElementsAre("/a/f\xC3\xBCr Elise.sng"));
    EXPECT_THAT(open({"file:///a/%FC.sng"}), ElementsAre("/a/\xFC.sng")) << "not UTF-8";
    EXPECT_THAT(open({"file://localhost/a.sng", "file:/b.sng"}), ElementsAre("/a.sng", "/b.sng"));
}

TEST_F(TheDesktop, GivesPlacesThatAreNoLocalFiles) {
    EXPECT_THAT(open({"smb://server/music/waltz.sng"}),
                ElementsAre("smb://server/music/waltz.sng"));
    EXPECT_THAT(open({"waltz.sng"}), ElementsAre("waltz.sng"));
    EXPECT_THAT(open({"file://other.invalid/a.sng"}), ElementsAre("file://other.invalid/a.sng"));
    EXPECT_THAT(open({"file:///a%00b.sng"}), ElementsAre("file:///a%00b.sng"));
}

TEST_F(TheDesktop, GivesATokenWithTheFiles) {
    application.Open({"file:///a.sng"}, {{"desktop-startup-id", "files_TIME7"}});
    EXPECT_EQ(openToken, "files_TIME7");
    application.Open({"file:///a.sng"}, {{"activation-token", "abc"}, {"other", 3}});
    EXPECT_EQ(openToken, "abc");
}

TEST_F(TheDesktop, ActivatesWithOrWithoutAToken) {
    application.Activate({});
    application.Activate({{"activation-token", ""}, {"desktop-startup-id", "menu_TIME8"}});
    EXPECT_THAT(activations, ElementsAre("", "menu_TIME8"));
}

TEST_F(TheDesktop, ActivatesIfItOpensNothing) {
    application.Open({}, {{"activation-token", "abc"}});
    EXPECT_THAT(activations, ElementsAre("abc"));
    EXPECT_THAT(opened, IsEmpty());
}

TEST_F(TheDesktop, HasNoActions) {
    application.ActivateAction("print", {}, {});
    EXPECT_THAT(activations, IsEmpty());
    EXPECT_THAT(opened, IsEmpty());
}
