// A drop-down list of instruments that opens with a search, headings and sound.
#include "windows/lists/InstrumentList.h"

#include "studio/Studio.h"
#include "windows/lists/InstrumentPopup.h"

#include <QKeyEvent>

namespace velorin {

InstrumentList::InstrumentList(QWidget* parent, std::vector<Instrument> instruments, Studio& studio,
                               NoteSounding& sounding)
    : DropDownList(parent),
      studio_(studio),
      instruments_(std::move(instruments)),
      sample_(studio, sounding) {}

InstrumentList::~InstrumentList() = default;

InstrumentPopup& InstrumentList::popup() {
    if (!popup_) {
        popup_ =
            std::make_unique<InstrumentPopup>(this, instruments_, sample_, studio_.platform.timers);
        popup_->onTaken = [this](int place) { take(place); };
        popup_->onClosed = [this] { QComboBox::hidePopup(); }; // releases the arrow
    }
    return *popup_;
}

void InstrumentList::showPopup() {
    if (!popup().isVisible())
        popup().open(currentIndex());
}

void InstrumentList::hidePopup() {
    if (popup_)
        popup_->hide();
    QComboBox::hidePopup();
}

void InstrumentList::take(int place) {
    const bool isAgain = place == currentIndex();
    setCurrentIndex(place);
    Q_EMIT activated(place);
    if (isAgain)
        Q_EMIT takenAgain();
}

void InstrumentList::keyPressEvent(QKeyEvent* event) {
    const QString typed = event->text();
    const bool isPlain = (event->modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) == 0;
    if (typed.isEmpty() || !typed.at(0).isLetterOrNumber() || !isPlain)
        return QComboBox::keyPressEvent(event);
    showPopup();
    popup().search->setText(typed);
}

} // namespace velorin
