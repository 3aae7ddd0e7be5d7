// The main window: its controls and what they are connected to.
#include "program/Form1.h"

#include "controls/DescribedControls.h"
#include "platform/Text.h"
#include "program/Program.h"
#include "score/Studio.h"
#include "shell/WindowKeys.h"

#include <QIcon>
#include <QPainter>

namespace velorin {

namespace {

/// The word mark; it lets the mouse through.
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

Form1::Form1(Program& program)
    : QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint | Qt::WindowMinMaxButtonsHint),
      program_(program),
      studio_(program.studio()),
      watch(studio_.platform.clock, studio_.platform.loop),
      sounding(studio_, *this),
      sequencer(studio_, sounding, watch, *this),
      commands(studio_, *this),
      files(studio_, *this),
      edits(studio_, *this, *this),
      duplicate(studio_, edits, commands, *this, *this),
      samples(studio_),
      menus(studio_, *this),
      frame(*this, FrameKind::main, mainWindowEllipse, program.frames),
      place(*this),
      area(new Picmain(this)),
      music(studio_, *area),
      poly(studio_, *area, music),
      percussion(studio_, *area, music, sounding, *this),
      musicMouse(studio_, *area, music, poly, sounding, *this),
      layout(studio_, *area, music, percussion, poly, *this),
      drag_(new WindowDrag(this)) {
    setObjectName("Form1");
    setWindowTitle("Velorin");
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_AlwaysShowToolTips); // whichever of the program's windows is active
    setContextMenuPolicy(Qt::PreventContextMenu);
    makeTitle();
    makeHiddenControls();
    connectToolbar();
    connectTableaux();
    connectHandles();
    addShortcuts(*this, true);
    addWindowKeys(*this);
    stackControls();
    describeControls(*this, "Form1");
    // The keyboard waits at the window itself until the user goes to a control.
    setFocus(Qt::OtherFocusReason);
}

Form1::~Form1() = default;

void Form1::makeTitle() {
    toolbMenu = new MainToolbar(this);
    toolbMenu->setGeometry(26, 25, 590, toolbarHeight);
    Picture2 = new WordMark(this);
    Picture2->setObjectName("Picture2");
    Picture2->setGeometry(496, 33, 104, 32);
    lblTitle = new QLabel("Velorin", this);
    lblTitle->setObjectName("lblTitle");
    lblTitle->setProperty("role", "title");
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
    const auto hidden = [this](auto* control, const QString& name) {
        control->setObjectName(name);
        control->setFocusPolicy(Qt::NoFocus);
        control->hide();
        return control;
    };
    Combo1 = hidden(new QComboBox(this), "Combo1");
    Combo5 = hidden(new QComboBox(this), "Combo5");
    Combo2 = hidden(new QComboBox(this), "Combo2");
    InstxtBox = hidden(new QLineEdit(this), "Instxt");
    Text3Box = hidden(new QLineEdit("60", this), "Text3");
    Text4Box = hidden(new QLineEdit("28", this), "Text4");
    Text5Box = hidden(new QLineEdit("28", this), "Text5");
    Check1 = hidden(new QCheckBox(this), "Check1");
    Check3 = hidden(new QCheckBox(this), "Check3");
    for (int row = 0; row < scoreRows; ++row) {
        auto* option = hidden(new QRadioButton(this), elementName("TrackSel", row));
        const Colour colour = channelColors[static_cast<std::size_t>(row)];
        option->setProperty("backColor", toQColor(colour));
        TrackSel[static_cast<std::size_t>(row)] = option;
    }
    TrackSel[0]->setChecked(true);
    for (int row = 0; row < scoreRows; ++row)
        connect(TrackSel[static_cast<std::size_t>(row)], &QRadioButton::toggled, this,
                [this, row](bool selected) {
                    if (selected)
                        TrackSel_Click(row);
                });
    connect(Check3, &QCheckBox::toggled, this, [this] { Check3_Click(); });
    connect(Combo1, &QComboBox::currentIndexChanged, this, [this] { Combo1_Click(); });
    connect(Combo5, &QComboBox::currentIndexChanged, this, [this] { Combo5_Click(); });
    connect(Combo2, &QComboBox::currentIndexChanged, this, [this] { Combo2_Click(); });
    // Beats may not exceed Repeat, here as on the Editing Toolbar.
    const auto keepBeatsWithinRepeat = [this] {
        if (platform::Val(Text4()) < platform::Val(Text5()))
            Text5Box->setText(Text4Box->text());
    };
    connect(Text4Box, &QLineEdit::textChanged, this, keepBeatsWithinRepeat);
    connect(Text5Box, &QLineEdit::textChanged, this, keepBeatsWithinRepeat);
}

void Form1::connectToolbar() {
    for (int i = 1; i <= toolbarButtons; ++i) {
        PictureButton* button = toolbMenu->Cmd2[static_cast<std::size_t>(i)];
        connect(button, &QToolButton::clicked, this, [this, button, i] {
            Cmd2_Click(i);
            if (!button->isReleasing()) // pressed by a key
                Cmd2_MouseUp(i);
        });
        button->onMouseUp = [this, i] { Cmd2_MouseUp(i); };
        button->onMouseDown = [this, i] { Cmd2_MouseDown(i); };
        button->onMouseMove = [this, i](int held) { Cmd2_MouseMove(i, held); };
        button->onLeave = [this] { program_.hints.unload(); };
    }
}

void Form1::connectTableaux() {
    const auto mouse = [](PictureBox* box, auto& target, auto down, auto move, auto up) {
        box->onMouseDown = [&target, down](int b, int s, double x, double y) {
            (target.*down)(b, s, x, y);
        };
        box->onMouseMove = [&target, move](int b, int s, double x, double y) {
            (target.*move)(b, s, x, y);
        };
        box->onMouseUp = [&target, up](int b, int s, double x, double y) {
            (target.*up)(b, s, x, y);
        };
    };
    mouse(area->MusicBox, musicMouse, &MusicMouse::MusicBox_MouseDown,
          &MusicMouse::MusicBox_MouseMove, &MusicMouse::MusicBox_MouseUp);
    mouse(area->Beatbox, percussion, &PercussionTableau::Beatbox_MouseDown,
          &PercussionTableau::Beatbox_MouseMove, &PercussionTableau::Beatbox_MouseUp);
    mouse(area->Pic1, poly, &PolyTableau::Pic1_MouseDown, &PolyTableau::Pic1_MouseMove,
          &PolyTableau::Pic1_MouseUp);
    area->TopBarOverlay->onMouseDown = [this](int b, int s, double x, double y) {
        music.TopBarOverlay_MouseDown(b, s, x, y);
    };
    area->TopBarOverlay->onMouseMove = [this](int b, int, double, double) { TopBar_MouseMove(b); };
    area->PicX->onMouseMove = [this](int b, int, double, double) { PicX_MouseMove(b); };
    area->TopBarOverlay->installEventFilter(this);
    area->PicX->installEventFilter(this);

    for (PictureBox* box : {area->MusicBox, area->Beatbox})
        box->onPressed = [this, box] { program_.focus.give(box); };
    program_.focus.onGot(area->MusicBox, [this] { musicMouse.MusicBox_GotFocus(); });
    program_.focus.onGot(area->Beatbox, [this] { percussion.Beatbox_GotFocus(); });
    program_.focus.onLost(area->Beatbox, [this] { percussion.Beatbox_LostFocus(); });
    // Who goes through the window with the Tab key has not asked for another row yet.
    program_.focus.letTabPass(area->Beatbox);
    area->Beatbox->installEventFilter(this);
}

void Form1::connectHandles() {
    for (QWidget* handle : frame.Resizer)
        handle->installEventFilter(this);
}

/// From below: the pieces of the frame, the work area and the strip, the title, the handles; the
/// title's buttons lie over the handles, so that all of each can be pressed.
void Form1::stackControls() {
    for (QWidget* handle : frame.Resizer)
        handle->raise();
    for (PictureButton* button :
         {imgTitleHelp, imgTitleMinimize, imgTitleMaxRestore, imgTitleClose})
        button->raise();
    QWidget* before = toolbMenu->Cmd2[1];
    for (int i = 2; i <= toolbarButtons; ++i) {
        setTabOrder(before, toolbMenu->Cmd2[static_cast<std::size_t>(i)]);
        before = toolbMenu->Cmd2[static_cast<std::size_t>(i)];
    }
    for (QWidget* next :
         {static_cast<QWidget*>(area->MusicBox), static_cast<QWidget*>(area->Beatbox),
          static_cast<QWidget*>(area->VScroll1), static_cast<QWidget*>(area->HScroll1),
          static_cast<QWidget*>(imgTitleHelp), static_cast<QWidget*>(imgTitleMinimize),
          static_cast<QWidget*>(imgTitleMaxRestore), static_cast<QWidget*>(imgTitleClose)}) {
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
