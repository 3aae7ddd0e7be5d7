// The rows of an open list of instruments.
#include "windows/lists/InstrumentModel.h"

#include "model/Cell.h"
#include "model/InstrumentFamilies.h"
#include "model/InstrumentNames.h"

#include <algorithm>
#include <string_view>

namespace velorin {

namespace {

QString asText(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

template <class Names>
std::vector<Instrument> instrumentsOf(const Names& names, int firstNumber,
                                      std::string_view (*familyOf)(int)) {
    std::vector<Instrument> all;
    all.reserve(names.size());
    for (const std::string_view name : names) {
        const int place = static_cast<int>(all.size());
        all.push_back({firstNumber + place, asText(name), asText(familyOf(place))});
    }
    return all;
}

} // namespace

QString Instrument::entry() const {
    return QString::number(number) + QLatin1Char(' ') + name;
}

std::vector<Instrument> melodicInstruments() {
    return instrumentsOf(instrumentNames, 0, &instrumentFamily);
}

std::vector<Instrument> percussionSounds() {
    return instrumentsOf(percussionNames, firstPercussion, &percussionFamily);
}

InstrumentModel::InstrumentModel(std::vector<Instrument> instruments, QObject* parent)
    : QAbstractListModel(parent), instruments_(std::move(instruments)) {
    setTyped({});
}

bool InstrumentModel::matches(const Instrument& instrument) const {
    return instrument.name.contains(typed_, Qt::CaseInsensitive) ||
           instrument.entry().startsWith(typed_, Qt::CaseInsensitive);
}

void InstrumentModel::setTyped(const QString& text) {
    beginResetModel();
    typed_ = text.trimmed();
    rows_.clear();
    for (int place = 0; place < static_cast<int>(instruments_.size()); ++place)
        if (matches(instruments_[static_cast<std::size_t>(place)]))
            rows_.push_back(place);
    endResetModel();
}

int InstrumentModel::placeOf(int row) const {
    return row >= 0 && row < rowCount() ? rows_[static_cast<std::size_t>(row)] : -1;
}

const Instrument* InstrumentModel::instrument(int row) const {
    const int place = placeOf(row);
    return place >= 0 ? &instruments_[static_cast<std::size_t>(place)] : nullptr;
}

int InstrumentModel::rowOf(int place) const {
    const auto found = std::ranges::find(rows_, place);
    return found != rows_.end() ? static_cast<int>(found - rows_.begin()) : -1;
}

bool InstrumentModel::hasHeading(int row) const {
    const Instrument* const here = instrument(row);
    const Instrument* const before = instrument(row - 1);
    return here != nullptr && (before == nullptr || before->family != here->family);
}

int InstrumentModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

QVariant InstrumentModel::data(const QModelIndex& index, int role) const {
    const Instrument* const shown = instrument(index.row());
    if (shown == nullptr)
        return {};
    switch (role) {
    case Qt::DisplayRole:
    case Qt::AccessibleTextRole:
        return shown->entry();
    case Qt::AccessibleDescriptionRole:
        return shown->family;
    default:
        return {};
    }
}

} // namespace velorin
