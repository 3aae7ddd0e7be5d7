// What holds for undo and redo after every sequence of changes, tested with random ones from a
// fixed seed. VELORIN_HISTORY_SESSIONS sets how many sessions are tried.
#include "history/History.h"
#include "session/Session.h"
#include "support/GridText.h"
#include "support/ScriptedPlatform.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <memory>
#include <random>

using namespace velorin;

namespace {

constexpr int usualSessions = 200;
constexpr int changesOfASession = 12;

int sessionCount() {
    const char* const wanted = std::getenv("VELORIN_HISTORY_SESSIONS");
    return wanted == nullptr ? usualSessions : std::atoi(wanted);
}

class Dice {
public:
    explicit Dice(unsigned seed) : engine_(seed) {}
    /// A whole number of [low, high].
    int number(int low, int high) {
        return low + static_cast<int>(engine_() % static_cast<unsigned>(high - low + 1));
    }

private:
    std::mt19937 engine_;
};

std::int16_t small(int number) {
    return static_cast<std::int16_t>(number);
}

class RandomSession {
public:
    explicit RandomSession(unsigned seed) : dice_(seed) {
        session_.studio.setup.values.device = 1;
        session_.studio.setup.values.options.rows[dice_.number(0, 7)].chord = true;
        session_.sequencer.PlayTimer = session_.watch.StopWatchNew();
        session_.sounding.Device_Click();
        history_.begin();
    }

    void change() {
        Score& score = session_.studio.score;
        score.StartColumn = small(dice_.number(0, 30));
        score.SelectStart = small(dice_.number(0, 20));
        score.SelectEnd = small(score.SelectStart + dice_.number(0, 10));
        change(dice_.number(0, 11));
        history_.changeFinished();
    }

    /// Every state again, from the last to the first and back, cell by cell and message by message.
    void undoAndRedoAll() {
        std::vector<std::unique_ptr<Score>> states;
        std::vector<std::vector<std::string>> messages;
        for (int i = 0; i < changesOfASession; ++i) {
            const std::size_t before = history_.entries().size();
            note(states, messages);
            change();
            if (history_.entries().size() == before) {
                states.pop_back();
                messages.pop_back();
            }
        }
        note(states, messages);
        for (std::size_t i = states.size() - 1; i-- > 0;) {
            ASSERT_EQ(history_.undo(), HistoryStep::done);
            expectState(*states[i], messages[i]);
        }
        ASSERT_EQ(history_.undo(), HistoryStep::atEnd);
        for (std::size_t i = 1; i < states.size(); ++i) {
            ASSERT_EQ(history_.redo(), HistoryStep::done);
            expectState(*states[i], messages[i]);
        }
        ASSERT_EQ(history_.redo(), HistoryStep::atEnd);
    }

private:
    void note(std::vector<std::unique_ptr<Score>>& states,
              std::vector<std::vector<std::string>>& messages) {
        states.push_back(std::make_unique<Score>(session_.studio.score));
        messages.push_back(playedMessages());
    }

    void expectState(const Score& wanted, const std::vector<std::string>& messages) {
        const Score& score = session_.studio.score;
        EXPECT_TRUE(score.NoteArray == wanted.NoteArray);
        EXPECT_TRUE(score.InstrumentArray == wanted.InstrumentArray);
        EXPECT_TRUE(score.PolyArray == wanted.PolyArray);
        EXPECT_EQ(score.RowInstrument, wanted.RowInstrument);
        EXPECT_EQ(score.Tempo, wanted.Tempo);
        EXPECT_EQ(playedMessages(), messages);
    }

    std::vector<std::string> playedMessages() {
        Score& score = session_.studio.score;
        const std::int16_t marker = score.StartColumn;
        host_.midi.log.clear();
        host_.time.restart();
        session_.studio.run.PauseFlag = flagClear;
        session_.studio.view.FirstColumn = 0;
        score.StartColumn = 0;
        session_.sequencer.PlayAndStop_Click(0);
        score.StartColumn = marker;
        return host_.midi.log;
    }

    void change(int kind);

    scripted::ScriptedPlatform host_;
    Session session_{host_.platform};
    History history_{session_.studio, session_.files, nullptr};
    Dice dice_;
};

void RandomSession::change(int kind) {
    Score& score = session_.studio.score;
    switch (kind) {
    case 0:
    case 1:
    case 2:
    case 3:
        scripted::putNote(score, dice_.number(0, 12), dice_.number(0, 40), dice_.number(0, 127),
                          dice_.number(1, 6), small(dice_.number(0, 174)));
        return;
    case 4:
        score.PolyArray.write(dice_.number(1, 8), dice_.number(0, 40), small(dice_.number(0, 1)));
        return;
    case 5:
        score.Tempo = small(dice_.number(20, 300));
        return;
    case 6:
        score.RowInstrument[score.CurrentRow] = small(dice_.number(0, 127));
        return;
    case 7:
        return session_.edits.CutBut_Click();
    case 8:
        session_.edits.CopySelectedArea();
        return session_.edits.PasteBut_Click();
    case 9:
        return session_.edits.InsertColumns(small(dice_.number(1, 9)));
    case 10:
        return session_.commands.mNew_Click();
    default: {
        const std::string path = (host_.folder.path() / "some.sng").string();
        std::ofstream(path) << dice_.number(0, 127) << ",-1," << dice_.number(0, 127)
                            << "\r\n24,0,24\r\n";
        static_cast<void>(session_.files.openChosen(path));
    }
    }
}

} // namespace

TEST(RandomHistoryTest, UndoToTheBeginningAndRedoToTheEndGiveEveryStateAgain) {
    for (int session = 0; session < sessionCount(); ++session) {
        SCOPED_TRACE("session " + std::to_string(session));
        RandomSession(static_cast<unsigned>(20261122 + session)).undoAndRedoAll();
        if (testing::Test::HasFailure())
            return;
    }
}
