#include "python/src/Binding.h"

#include "quor/metadata/VisitMD.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <utility>

namespace Veld::Quor::Python {

using MDType = Keywords::IKeywordDataMD::MDType;

namespace {

/// The values of one item of all records. A value that isn't there is NaN, or has its `isMissing` set.
class Column {
public:
    Column(const Keywords::IKeywordRecordMD& md, int item, Keywords::SimulatorType::Enum simulator,
        bool hasDefaults)
        : item_(item)
        , name_(ItemName(md, item))
        , md_(*md.GetItemMD(item))
        , simulator_(simulator)
        , hasDefaults_(hasDefaults)
    {
    }

    void Add(const Record& record)
    {
        const Keywords::IKeywordRecordData& data = *record.data;
        switch (md_.GetType()) {
        case MDType::Real:
            reals_.push_back(Value<double>(data).ValueOr(std::numeric_limits<double>::quiet_NaN()));
            break;
        case MDType::Integer:
            AddInteger(Value<int>(data));
            break;
        case MDType::Choice:
            AddInteger(ChoiceIndex(data));
            break;
        case MDType::Boolean: {
            const auto value = Value<bool>(data);
            AddInteger(value ? Service::Optional<int>(*value ? 1 : 0) : Service::Optional<int>());
            break;
        }
        default:
            others_.append(HasValue(data) ? ItemValue(record, item_) : py::none());
        }
    }

    /// Name, kind, values, what is missing, and the words of a choice.
    py::tuple Finish() const
    {
        py::array_t<bool> missing(static_cast<py::ssize_t>(missing_.size()));
        std::copy(missing_.begin(), missing_.end(), missing.mutable_data());
        py::object values = others_;
        if (md_.GetType() == MDType::Real)
            values = py::array_t<double>(static_cast<py::ssize_t>(reals_.size()), reals_.data());
        else if (!integers_.empty())
            values = py::array_t<std::int32_t>(static_cast<py::ssize_t>(integers_.size()), integers_.data());
        return py::make_tuple(
            name_, Keywords::IKeywordDataMD::MDType::ToString(md_.GetType()), values, missing, Words());
    }

private:
    bool HasValue(const Keywords::IKeywordRecordData& data) const
    {
        const MDType::Enum type = md_.GetType();
        const bool isText = type == MDType::String || type == MDType::Line;
        return hasDefaults_ || !isText || Keywords::Has(data, item_);
    }

    template <class T>
    Service::Optional<T> Value(const Keywords::IKeywordRecordData& data) const
    {
        return hasDefaults_ ? Keywords::GetOrDefault<T>(data, item_, simulator_)
                            : Keywords::Get<T>(data, item_);
    }

    Service::Optional<int> ChoiceIndex(const Keywords::IKeywordRecordData& data) const
    {
        const auto& given = *static_cast<const Service::Optional<int>*>(data.GetData(item_));
        if (given || !hasDefaults_)
            return given;
        const auto index = static_cast<const Keywords::IKeywordChoiceMD&>(md_).GetDefault(simulator_);
        return index && *index >= 0 ? index : Service::Optional<int>();
    }

    void AddInteger(const Service::Optional<int>& value)
    {
        integers_.push_back(value.ValueOr(0));
        missing_.push_back(!value);
    }

    py::list Words() const
    {
        py::list words;
        if (md_.GetType() != MDType::Choice)
            return words;
        const auto& choice = static_cast<const Keywords::IKeywordChoiceMD&>(md_);
        for (int i = 0; i < choice.NumChoices(); ++i)
            words.append(Text(choice.GetChoice(i)));
        return words;
    }

    int item_;
    std::string name_;
    const Keywords::IKeywordDataMD& md_;
    Keywords::SimulatorType::Enum simulator_;
    bool hasDefaults_;
    std::vector<double> reals_;
    std::vector<std::int32_t> integers_; // of choices their indices
    std::vector<bool> missing_;
    py::list others_;
};

/// The metadata that all the keywords share.
const Keywords::IKeywordRecordMD& CommonMD(const std::vector<Keyword>& keywords)
{
    const Decks::DeckKeyword first = keywords.front().Get();
    const auto* const md = FindRecordMD(first.GetSyntax().GetDataMD());
    if (!md)
        Raise(first.GetName() + " has no records", first.GetLocation());
    for (const Keyword& keyword : keywords) {
        const Decks::DeckKeyword other = keyword.Get();
        if (FindRecordMD(other.GetSyntax().GetDataMD()) != md)
            Raise(other.GetName() + " has other items here than in " + first.GetLocation().file + ":"
                    + std::to_string(first.GetLocation().line),
                other.GetLocation());
    }
    return *md;
}

/// The date, file, line and table of each record.
class Places {
public:
    void Add(const Record& record)
    {
        if (!date_ || keyword_ != record.keyword.index) {
            date_ = DateTime(record.keyword.Get().GetTime());
            keyword_ = record.keyword.index;
        }
        const Decks::Location location = record.keyword.Get().GetLocation(record.element);
        dates_.append(date_);
        files_.append(Text(location.file));
        lines_.push_back(static_cast<std::int64_t>(location.line));
        tables_.push_back(static_cast<std::int64_t>(record.table));
    }

    py::tuple Finish() const
    {
        const auto size = static_cast<py::ssize_t>(lines_.size());
        return py::make_tuple(dates_, files_, py::array_t<std::int64_t>(size, lines_.data()),
            py::array_t<std::int64_t>(size, tables_.data()));
    }

private:
    py::object date_;
    std::size_t keyword_ = 0;
    py::list dates_;
    py::list files_;
    std::vector<std::int64_t> lines_;
    std::vector<std::int64_t> tables_;
};

py::tuple ColumnsOf(const std::vector<Keyword>& keywords, bool hasDefaults)
{
    const Keywords::IKeywordRecordMD& md = CommonMD(keywords);
    const auto simulator = keywords.front().deck->GetTarget().simulator;
    std::vector<Column> columns;
    for (int i = 0; i < md.GetSize(); ++i)
        columns.emplace_back(md, i, simulator, hasDefaults);
    Places places;
    for (const Keyword& keyword : keywords) {
        for (const Record& record : RecordsOf(keyword)) {
            for (Column& column : columns)
                column.Add(record);
            places.Add(record);
        }
    }
    py::list rows;
    for (const Column& column : columns)
        rows.append(column.Finish());
    return py::make_tuple(rows, places.Finish());
}

} // namespace

void BindColumns(py::module_& module)
{
    module.def("columns", ColumnsOf, py::arg("keywords"), py::arg("defaults"));
}

} // namespace Veld::Quor::Python
