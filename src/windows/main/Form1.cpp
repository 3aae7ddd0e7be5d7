// `Form1`, the main window: makes its controls and connects their events.
#include "windows/main/Form1.h"

#include "platform/Text.h"
#include "session/Session.h"
#include "windows/editing/EditingToolbar.h"
#include "windows/frame/DropDownList.h"
#include "windows/frame/ToolWindows.h"
#include "windows/frame/WindowKeys.h"
#include "windows/help/frminfo.h"
#include "windows/pen/Pen.h"
#include "windows/strip/PressWatch.h"
#include "windows/strip/StateLine.h"
#include "windows/strip/StateWatch.h"
#include "windows/strip/StripTools.h"
#include "windows/strip/TitleLabel.h"
#include "windows/texts/ButtonNumbers.h"
#include "windows/texts/DescribedControls.h"
#include "windows/texts/KeyTable.h"
#include "windows/texts/ScreenReader.h"

#include <QIcon>
#include <QPainter>

namespace velorin {

namespace {

/// The word mark. Mouse events pass through it.
class WordMark final : public QWidget {
public:
    explicit WordMark(QWidget* parent) : QWidget(parent), mark_(":/look/wordmark.svg") {
        setAttribute(Qt::WA_TransparentForMouseEvents);
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        mark_.paint(&painter, rect());
    }

private:
    QIcon mark_;
};

PictureButton* titleButton(QWidget* window, const char* name, const char* picture) {
    auto* button = new PictureButton(window, QLatin1String(name), QLatin1String(picture));
    button->setProperty("role", "title");
    button->setIconSize(QSize(16, 16));
    return button;
}

} // namespace

Form1::Form1(const MainWindowParts& parts)
    : QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint | Qt::WindowMinMaxButtonsHint),
      session(parts.session),
      hints(parts.hints),
      studio_(parts.session.studio),
      windows_(parts.windows),
      editing_(parts.editing),
      samples_(parts.samples),
      desk(*this, parts.windows, parts.editing, parts.recording),
      menus(parts.session, parts.windows, *this),
      frame(*this, FrameKind::main, mainWindowEllipse, parts.windows.frames),
      place(*this),
      area(new Picmain(this)),
      music(studio_, *area),
      poly(studio_, *area, music),
      percussion(studio_, *area, music, session.sounding, *this),
      musicMouse(studio_, *area, music, poly, session.sounding, *this),
      layout(studio_, *area, music, percussion, poly, *this),
      drag_(new WindowDrag(this)) {
    studio_.desk = &desk;
    setObjectName("Form1");
    setWindowTitle("Velorin");
    setProperty("caption", "Velorin");
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_AlwaysShowToolTips); // even if another window is active
    setContextMenuPolicy(Qt::PreventContextMenu);
    makeTitle();
    makeHiddenControls();
    connectHiddenControls();
    connectToolbar();
    connectPen();
    connectTableaux();
    connectStrip();
    for (QWidget* handle : frame.Resizer)
        handle->installEventFilter(this);
    windows_.addKeys = [this](ToolFrame& window) { addKeys(window); };
    windows_.onScreensChanged = [this] { comeIntoReach(); };
    addShortcuts(*this, true);
    addWindowKeys(*this);
    windows_.addArrangeKey(*this);
    setAcceptDrops(true);
    stackControls();
    describeControls(*this, "Form1");
    showToReaders(*this, ControlKind::window);
    // The window itself has the focus until the user chooses a control.
    setFocus(Qt::OtherFocusReason);
}

Form1::~Form1() = default;

void Form1::makeTitle() {
    toolbMenu = new MainToolbar(this);
    toolbMenu->setGeometry(26, 25, 590, toolbarHeight);
    Picture2 = new WordMark(this);
    Picture2->setObjectName("Picture2");
    Picture2->setGeometry(496, 33, 104, 32);
    lblTitle = new TitleLabel("Velorin", this);
    lblTitle->setObjectName("lblTitle");
    strip = new StripTools(*this, *toolbMenu);
    state = new StateWatch(session, *strip->line);
    presses_ = std::make_unique<PressWatch>(session);
    Image1 = new QLabel(this);
    Image1->setObjectName("Image1");
    Image1->setGeometry(14, 4, 16, 16);
    Image1->setPixmap(QIcon(":/look/velorin.svg").pixmap(QSize(16, 16), devicePixelRatioF()));
    imgTitleHelp = titleButton(this, "imgTitleHelp", "title-help");
    imgTitleMinimize = titleButton(this, "imgTitleMinimize", "title-minimise");
    imgTitleMaxRestore = titleButton(this, "imgTitleMaxRestore", "title-maximise");
    imgTitleClose = titleButton(this, "imgTitleClose", "title-close");
    imgTitleClose->setProperty("danger", true);
    connect(imgTitleHelp, &QToolButton::clicked, this, [this] { imgTitleHelp_Click(); });
    connect(imgTitleMinimize, &QToolButton::clicked, this, [this] { imgTitleMinimize_Click(); });
    connect(imgTitleMaxRestore, &QToolButton::clicked, this,
            [this] { imgTitleMaxRestore_Click(); });
    connect(imgTitleClose, &QToolButton::clicked, this, [this] { imgTitleClose_Click(); });
    for (QWidget* handle : {static_cast<QWidget*>(lblTitle), static_cast<QWidget*>(Image1),
                            static_cast<QWidget*>(toolbMenu)})
        drag_->watch(handle);
}

void Form1::makeHiddenControls() {
    const auto hidden = [](auto* control, const QString& name) {
        control->setObjectName(name);
        control->setFocusPolicy(Qt::NoFocus);
        control->hide();
        return control;
    };
    Combo1 = hidden(new DropDownList(this), "Combo1");
    Combo5 = hidden(new DropDownList(this), "Combo5");
    Combo2 = hidden(new DropDownList(this), "Combo2");
    Instxt = hidden(new QLineEdit(this), "Instxt");
    Text3 = hidden(new QLineEdit("60", this), "Text3");
    Text4 = hidden(new QLineEdit("28", this), "Text4");
    Text5 = hidden(new QLineEdit("28", this), "Text5");
    Check1 = hidden(new QCheckBox(this), "Check1");
    Check3 = hidden(new QCheckBox(this), "Check3");
    for (int row = 0; row < scoreRows; ++row) {
        auto* option = hidden(new QRadioButton(this), elementName("TrackSel", row));
        const Colour colour = channelColors[row];
        option->setProperty("backColor", toQColor(colour));
        TrackSel[row] = option;
    }
    TrackSel[0]->setChecked(true);
}

void Form1::connectHiddenControls() {
    for (int row = 0; row < scoreRows; ++row)
        connect(TrackSel[row], &QRadioButton::toggled, this, [this, row](bool selected) {
            if (selected)
                session.TrackSel_Click(row);
        });
    connect(Check3, &QCheckBox::toggled, this, [this] { Check3_Click(); });
    connect(Combo1, &QComboBox::currentIndexChanged, this,
            [this] { session.sounding.Combo1_Click(); });
    connect(Combo5, &QComboBox::currentIndexChanged, this,
            [this] { session.sounding.Combo5_Click(); });
    connect(Combo2, &QComboBox::currentIndexChanged, this,
            [this] { session.sounding.Combo2_Click(); });
    // Beats is at most Repeat, as on the Editing Toolbar.
    const auto keepBeatsWithinRepeat = [this] {
        if (platform::Val(Text4->text().toStdString()) < platform::Val(Text5->text().toStdString()))
            Text5->setText(Text4->text());
    };
    connect(Text4, &QLineEdit::textChanged, this, keepBeatsWithinRepeat);
    connect(Text5, &QLineEdit::textChanged, this, keepBeatsWithinRepeat);
}

void Form1::connectToolbar() {
    for (int i = 1; i <= mainButton::last; ++i) {
        PictureButton* button = toolbMenu->Cmd2[i];
        connect(button, &QToolButton::clicked, this, [this, button, i] {
            Cmd2_Click(i);
            if (!button->isReleasing()) // the click came from a key
                Cmd2_MouseUp(i);
        });
        button->onMouseUp = [this, i] { Cmd2_MouseUp(i); };
        button->onMouseDown = [this, i] { Cmd2_MouseDown(i); };
        button->onMouseMove = [this, i](int held) { Cmd2_MouseMove(i, held); };
        button->onLeave = [this] { hints.unload(); };
    }
    PictureButton* const open = toolbMenu->Cmd2[mainButton::open];
    open->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(open, &QWidget::customContextMenuRequested, this,
            [this] { runFileCommand(FileCommand::openedLast); });
}

void Form1::connectTableaux() {
    const auto mouse = [this](PictureBox* box, Tableau where, auto& target, auto down, auto move,
                              auto up) {
        box->onMouseDown = [this, where, &target, down](int b, int s, double x, double y) {
            pressTableau(where, b, x, y, [&] { (target.*down)(b, s, x, y); });
        };
        box->onMouseMove = [&target, move](int b, int s, double x, double y) {
            (target.*move)(b, s, x, y);
        };
        box->onMouseUp = [this, &target, up](int b, int s, double x, double y) {
            releaseTableau(b, [&] { (target.*up)(b, s, x, y); });
        };
    };
    mouse(area->MusicBox, Tableau::music, musicMouse, &MusicMouse::MusicBox_MouseDown,
          &MusicMouse::MusicBox_MouseMove, &MusicMouse::MusicBox_MouseUp);
    mouse(area->Beatbox, Tableau::strip, percussion, &PercussionTableau::Beatbox_MouseDown,
          &PercussionTableau::Beatbox_MouseMove, &PercussionTableau::Beatbox_MouseUp);
    mouse(area->Pic1, Tableau::lanes, poly, &PolyTableau::Pic1_MouseDown,
          &PolyTableau::Pic1_MouseMove, &PolyTableau::Pic1_MouseUp);
    area->TopBarOverlay->onMouseDown = [this](int b, int s, double x, double y) {
        pressTableau(Tableau::numbers, b, x, y, [&] { music.TopBarOverlay_MouseDown(b, s, x, y); });
    };
    area->TopBarOverlay->onMouseMove = [this](int b, int, double, double) { TopBar_MouseMove(b); };
    area->PicX->onMouseMove = [this](int b, int, double, double) { PicX_MouseMove(b); };
    area->TopBarOverlay->installEventFilter(this);
    area->PicX->installEventFilter(this);

    for (PictureBox* box : {area->MusicBox, area->Beatbox})
        box->onPressed = [this, box] { windows_.focus.give(box); };
    windows_.focus.onGot(area->MusicBox, [this] { musicMouse.MusicBox_GotFocus(); });
    windows_.focus.onGot(area->Beatbox, [this] { percussion.Beatbox_GotFocus(); });
    windows_.focus.onLost(area->Beatbox, [this] { percussion.Beatbox_LostFocus(); });
    // The Tab key alone selects no percussion row. Enter or Space on the strip does.
    windows_.focus.letTabPass(area->Beatbox);
    area->Beatbox->installEventFilter(this);
}

/// Stacks the controls, the lowest first: frame pieces, work area and strip, title, handles, title
/// buttons. A handle must not cover a title button. Also sets the Tab order.
void Form1::stackControls() {
    for (QWidget* handle : frame.Resizer)
        handle->raise();
    for (PictureButton* button :
         {strip->arrowInTitle, imgTitleHelp, imgTitleMinimize, imgTitleMaxRestore, imgTitleClose})
        button->raise();
    QWidget* before = toolbMenu->Cmd2[1];
    for (int i = 2; i <= mainButton::last; ++i) {
        setTabOrder(before, toolbMenu->Cmd2[i]);
        before = toolbMenu->Cmd2[i];
    }
    for (PictureButton* next : strip->buttons) {
        setTabOrder(before, next);
        before = next;
    }
    for (QWidget* next :
         {static_cast<QWidget*>(strip->arrow), static_cast<QWidget*>(strip->arrowInTitle),
          static_cast<QWidget*>(area->MusicBox), static_cast<QWidget*>(area->Beatbox),
          static_cast<QWidget*>(area->Pic1), static_cast<QWidget*>(area->VScroll1),
          static_cast<QWidget*>(area->HScroll1), static_cast<QWidget*>(imgTitleHelp),
          static_cast<QWidget*>(imgTitleMinimize), static_cast<QWidget*>(imgTitleMaxRestore),
          static_cast<QWidget*>(imgTitleClose)}) {
        setTabOrder(before, next);
        before = next;
    }
}

void Form1::layOutTitle() {
    constexpr QSize button(26, 20);
    lblTitle->setGeometry(36, 0, qMax(0, width() - 200), 25);
    imgTitleHelp->setGeometry(QRect(QPoint(width() - 124, 3), button));
    imgTitleMinimize->setGeometry(QRect(QPoint(width() - 96, 3), button));
    imgTitleMaxRestore->setGeometry(QRect(QPoint(width() - 68, 3), button));
    imgTitleClose->setGeometry(QRect(QPoint(width() - 40, 3), button));
}

} // namespace velorin
