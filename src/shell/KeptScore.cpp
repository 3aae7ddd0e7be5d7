// Keeping the score after each finished change.
#include "shell/KeptScore.h"

#include "platform/KeptState.h"
#include "score/SavedState.h"
#include "score/Score.h"
#include "score/ScoreWriter.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QEvent>
#include <QGuiApplication>

namespace velorin {

KeptScore::KeptScore(platform::KeptState* state, const Score& score, const SavedState& saved)
    : state_(state), score_(score), saved_(saved) {}

void KeptScore::watch() {
    if (state_ == nullptr)
        return;
    QCoreApplication::instance()->installEventFilter(this);
    connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, this,
            [this] {
                if (QGuiApplication::mouseButtons() == Qt::NoButton)
                    changeFinished();
            });
}

// Events may wait in a row, so that the loop does not sleep between a release and the next press;
// the change that the release finished must not wait for the end of the next drag.
bool KeptScore::eventFilter(QObject*, QEvent* event) {
    if (event->type() == QEvent::MouseButtonPress)
        changeFinished();
    return false;
}

KeptScore::Stamp KeptScore::stamp() const {
    return {
        {score_.NoteArray.changes(), score_.InstrumentArray.changes(), score_.PolyArray.changes()},
        score_.Tempo,
        score_.RowInstrument};
}

void KeptScore::changeFinished() {
    if (state_ == nullptr || isDecided_)
        return;
    const Stamp now = stamp();
    if (now == seen_)
        return;
    seen_ = now;
    std::string text = isWorthKeeping(score_) ? keptText(score_) : std::string();
    if (text == kept_)
        return;
    kept_ = std::move(text);
    if (kept_.empty())
        state_->forget();
    else
        state_->keep(kept_);
}

void KeptScore::setAside() {
    changeFinished();
    isDecided_ = true;
}

void KeptScore::end() {
    if (state_ == nullptr)
        return;
    changeFinished();
    QCoreApplication::instance()->removeEventFilter(this);
    disconnect(QAbstractEventDispatcher::instance(), nullptr, this, nullptr);
    if (!isDecided_ && saved_.isSaved(score_))
        state_->forget();
    isDecided_ = true;
}

} // namespace velorin
