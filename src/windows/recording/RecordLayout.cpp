// Makes and places the controls of `Record`.
#include "platform/CheckedArray.h"
#include "recording/RecordingFormats.h"
#include "windows/frame/DropDownList.h"
#include "windows/frame/PlacedControls.h"
#include "windows/recording/MakingPanel.h"
#include "windows/recording/Record.h"
#include "windows/texts/DescribedControls.h"

#include <QIcon>

namespace velorin {

namespace {

QString latin(const char* text) {
    return QString::fromLatin1(text);
}

QString latin(std::string_view text) {
    return QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size()));
}

QLabel* makeValue(QWidget* parent, const char* name, QRect place, Qt::Alignment alignment) {
    QLabel* const label = named(makeLabel(parent, place, QString(), "value"), name, place);
    label->setAlignment(alignment | Qt::AlignVCenter);
    return label;
}

} // namespace

void Record::makeRecordPage() {
    auto* const page = new QWidget(SSTab1);
    SSTab1->addTab(page, QStringLiteral("Record/Play"));
    Picture2 = makePanel(page, QRect(8, 8, 238, 72));
    Picture2->setObjectName("Picture2");
    Optsourcesng = named(new QRadioButton(latin("Record from SNG file or notes"), Picture2),
                         "Optsourcesng", QRect(12, 12, 218, 22));
    Optsourcemid = named(new QRadioButton(latin("Record from MID file"), Picture2), "Optsourcemid",
                         QRect(12, 38, 218, 22));
    Optsourcesng->setChecked(true);
    makeRecordPanel(page);
    Text6 = named(new QLineEdit(page), "Text6", QRect(8, 88, 498, 26));
    makePlayer(page);
    making = new MakingPanel(page);
    makeMp3Labels(page);
    makeProgress(page);
    picMP3 = named(new QWidget(page), "picMP3", QRect());
    picMP3->hide();
    Timer10 = named(new QWidget(page), "Timer10", QRect());
    Timer10->hide();
    Timer10->setEnabled(false);
}

void Record::makeRecordPanel(QWidget* page) {
    QFrame* const panel = makePanel(page, QRect(254, 8, 252, 72));
    rec = named(new RecordImage(panel), "rec", QRect(12, 12, 48, 48));
    Label1 =
        named(new LabelButton(latin("Start Recording"), panel), "Label1", QRect(70, 8, 170, 30));
    Label8 = makeValue(panel, "Label8", QRect(70, 42, 170, 20), Qt::AlignHCenter);
}

void Record::makePlayer(QWidget* page) {
    Picture7 = makePanel(page, QRect(8, 122, 150, 44));
    Picture7->setObjectName("Picture7");
    Picture7->setProperty("role", "strip");
    struct Place {
        const char* picture;
        int left;
    };
    constexpr platform::CheckedArray<Place, 4> places{{{"player-0-open", 5},
                                                       {"player-1-play", 40},
                                                       {"player-2-pause", 75},
                                                       {"player-3-stop", 110}}};
    for (int i = 0; i < places.size(); ++i) {
        auto* const button =
            new PictureButton(Picture7, elementName("Cmd2", i), latin(places[i].picture));
        button->setGeometry(places[i].left, 5, 34, 34);
        button->setIconSize(QSize(24, 24));
        Cmd2[i] = button;
    }
}

void Record::makeMp3Labels(QWidget* page) {
    Picture5 = makePanel(page, QRect(166, 122, 340, 44));
    Picture5->setObjectName("Picture5");
    makeLabel(Picture5, QRect(12, 4, 110, 36), latin("Play from File"), "heading");
    lblKhz = makeValue(Picture5, "lblKhz", QRect(122, 4, 24, 36), Qt::AlignRight);
    lblbitrate = makeValue(Picture5, "lblbitrate", QRect(152, 4, 32, 36), Qt::AlignRight);
    makeLabel(Picture5, QRect(188, 4, 32, 36), latin("kbps"), "");
    lblmode = makeValue(Picture5, "lblmode", QRect(224, 4, 48, 36), Qt::AlignLeft);
    lblTime = makeValue(Picture5, "lblTime", QRect(274, 4, 54, 36), Qt::AlignRight);
    lblTime->setText(QStringLiteral(":"));
    lblTime->setStyleSheet(QStringLiteral("font-size: 16px;"));
    Picture5->hide();
}

void Record::makeProgress(QWidget* page) {
    P2 = named(new ProgressTrack(page), "P2", QRect(8, 182, 300, 12));
    L2 = new ProgressBar(P2);
    L2->setObjectName("L2");
    Status = named(new StatusLabel(page), "Status", QRect(314, 178, 56, 20));
    Status->setProperty("role", "value");
    Status->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    Command20 =
        named(new QPushButton(latin("Encode File"), page), "Command20", QRect(384, 174, 122, 28));
}

void Record::makePreferencesPage() {
    auto* const page = new QWidget(SSTab1);
    SSTab1->addTab(page, QStringLiteral("Preferences"));
    makeOptions(page);
    makeFormats(page);
    InputPath = named(new QLineEdit(latin("TEMP.WAV"), page), "InputPath", QRect(8, 170, 238, 26));
    auto* const arrow = new QLabel(page);
    arrow->setObjectName("arrow");
    arrow->setPixmap(QIcon(":/look/glyph-arrow-to.svg").pixmap(QSize(16, 16), devicePixelRatioF()));
    arrow->setGeometry(249, 175, 16, 16);
    OutPutPath =
        named(new QLineEdit(latin("TEMP.MP3"), page), "OutPutPath", QRect(268, 170, 238, 26));
}

void Record::makeOptions(QWidget* page) {
    QFrame* const panel = makePanel(page, QRect(8, 8, 206, 152));
    const auto option = [panel](const char* caption, const char* name, int top) {
        return named(new QCheckBox(latin(caption), panel), name, QRect(14, top, 180, 22));
    };
    Check2 = option("Auto-Encode to MP3", "Check2", 12);
    Check3 = option("Delete WAV file", "Check3", 42);
    Check4 = option("Show Note position", "Check4", 72);
    Command1 = named(new QPushButton(latin("Mixer"), panel), "Command1", QRect(14, 108, 178, 30));
}

void Record::makeFormats(QWidget* page) {
    QFrame* const panel = makePanel(page, QRect(222, 8, 284, 152));
    makeLabel(panel, QRect(14, 10, 256, 18), latin("WAV Recording Format"), "heading");
    cbxFormat = named(new DropDownList(panel), "cbxFormat", QRect(14, 32, 256, 26));
    makeLabel(panel, QRect(14, 74, 120, 18), latin("MP3 Bitrate"), "heading");
    Combo4 = named(new DropDownList(panel), "Combo4", QRect(14, 96, 120, 26));
    for (const std::string_view row : mp3Bitrates)
        Combo4->addItem(latin(row));
    makeLabel(panel, QRect(150, 74, 120, 18), latin("MP3 Quality"), "heading");
    Combo3 = named(new DropDownList(panel), "Combo3", QRect(150, 96, 120, 26));
    for (const Mp3Quality& quality : mp3Qualities)
        Combo3->addItem(latin(quality.row));
    Combo4->setCurrentIndex(-1);
    Combo3->setCurrentIndex(-1);
}

} // namespace velorin
