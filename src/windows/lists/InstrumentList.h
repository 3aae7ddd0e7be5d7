// A drop-down list of instruments that opens with a search, headings and sound.
#pragma once

#include "playback/InstrumentSample.h"
#include "windows/frame/DropDownList.h"
#include "windows/lists/InstrumentModel.h"

#include <memory>

namespace velorin {

class InstrumentPopup;

/// Its entries are those of `instruments`, in this order; the owner fills them in. Letters and
/// digits typed into the closed list open it and begin the search.
///
/// An entry that is taken becomes the current one after the list has closed. Taking the current one
/// again changes nothing.
class InstrumentList : public DropDownList {
    Q_OBJECT

public:
    InstrumentList(QWidget* parent, std::vector<Instrument> instruments, Studio& studio,
                   NoteSounding& sounding);
    ~InstrumentList() override;

    void showPopup() override;
    void hidePopup() override;

    /// The open list, made by the first call.
    InstrumentPopup& popup();

Q_SIGNALS:
    void takenAgain(); ///< the user has taken the entry that was the current one already

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void take(int place);

    Studio& studio_;
    std::vector<Instrument> instruments_;
    InstrumentSample sample_;
    std::unique_ptr<InstrumentPopup> popup_; ///< null until it is needed
};

} // namespace velorin
