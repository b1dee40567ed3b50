#include "tests/deck/RandomLanguage.h"

#include <utility>

namespace Veld::Quor::Tests {

namespace {

std::string Attribute(const std::string& name, const std::string& value)
{
    return " " + name + "='" + value + "'";
}

} // namespace

RandomLanguage::RandomLanguage(std::uint32_t seed)
    : random_(seed)
{
    for (int i = 0; i < 12; ++i)
        roots_.push_back(MakeRoot());
}

int RandomLanguage::Pick(int most)
{
    return static_cast<int>(random_() % static_cast<unsigned>(most));
}

// The language

RandomLanguage::Shape RandomLanguage::MakeScalar()
{
    Shape scalar;
    scalar.kind = static_cast<Kind>(Pick(static_cast<int>(Kind::Choice) + 1));
    scalar.mayBeMissing = Toss();
    return scalar;
}

RandomLanguage::Shape RandomLanguage::MakeRecord(const std::string& termination, int scalars)
{
    Shape record{Kind::Record, termination};
    for (int i = 0; i < scalars; ++i)
        record.inner.push_back(MakeScalar());
    return record;
}

RandomLanguage::Shape RandomLanguage::MakeList(const std::string& termination, Shape element)
{
    Shape list{Kind::List, termination, Toss(), termination == "NONE" ? 1 + Pick(5) : 0};
    list.inner.push_back(std::move(element));
    return list;
}

RandomLanguage::Shape RandomLanguage::MakeRoot()
{
    const Shape rows = MakeList("SLASH", MakeRecord("NONE", 1 + Pick(4)));
    Shape record = MakeRecord("SLASH", 1 + Pick(6));
    switch (Pick(13)) {
    case 0:
        return record;
    case 1:
        record.inner.insert(record.inner.begin() + 1, rows);
        return record;
    case 2:
        record.inner.push_back(MakeList("NONE", MakeScalar()));
        return record;
    case 3:
        record.inner.insert(record.inner.begin() + Pick(2), MakeRecord(Toss() ? "SLASH" : "NONE", 2));
        return MakeList("SLASH", record);
    case 4:
        return MakeList("SLASH", record);
    case 5:
        return MakeList("NONE", record);
    case 6:
        return MakeList(Toss() ? "SLASH" : "NONE", MakeScalar());
    case 7:
        return MakeList("NONE", rows);
    case 8: {
        Shape lead = MakeRecord("NONE", 1 + Pick(2));
        lead.inner.push_back(rows);
        return MakeList("SLASH", lead);
    }
    case 9:
        return Shape{Kind::Map, "SLASH"};
    case 10:
        return Shape{Kind::Raw};
    case 11: {
        Shape title{Kind::Record, "EOL"};
        title.inner.push_back({Kind::Line});
        return Toss() ? title : MakeRecord("EOL", 1 + Pick(4));
    }
    default:
        return Toss() ? MakeList("SLASH", MakeRecord("EOL", 1 + Pick(3)))
                      : MakeList("CUSTOMIZED", Toss() ? Shape{Kind::Line} : Shape{Kind::Text});
    }
}

std::string RandomLanguage::Describe(const Shape& shape)
{
    const std::string missing = shape.mayBeMissing ? "<default type='calculated'/>" : "";
    switch (shape.kind) {
    case Kind::Integer:
        return "<integer>" + missing + "</integer>";
    case Kind::Real:
        return "<real>" + std::string(shape.mayBeMissing ? "<format>%.3f</format>" : "") + missing
            + "</real>";
    case Kind::Text:
        return "<string>" + missing + "</string>";
    case Kind::Truth:
        return "<boolean>" + missing + "</boolean>";
    case Kind::Choice:
        return "<choice><values><value string='OIL'/><value string='GAS LIFT'/><value string='3*X'/></values>"
            + std::string(shape.mayBeMissing ? missing : "<default type='no default'/>") + "</choice>";
    case Kind::Line:
        return "<line/>";
    case Kind::Map:
        return "<map><assignment name='A'><integer/></assignment><assignment "
               "name='B'><integer/></assignment><assignment name='W*' "
               "wildcard='true'><integer/></assignment></map>";
    case Kind::Raw:
        return "<raw stringTermination='ENDRAW'/>";
    case Kind::Record: {
        std::string text = "<record" + Attribute("termination", shape.termination) + ">";
        for (std::size_t i = 0; i < shape.inner.size(); ++i)
            text += "<item" + Attribute("name", "V" + std::to_string(i)) + ">" + Describe(shape.inner[i])
                + "</item>";
        return text + "</record>";
    }
    case Kind::List: {
        std::string text = "<list" + Attribute("termination", shape.termination);
        if (shape.size > 0)
            text += Attribute("size", std::to_string(shape.size));
        if (shape.mayBeMissing && shape.inner[0].kind <= Kind::Choice)
            text += Attribute("itemsDefaultable", "true");
        text += ">" + Describe(shape.inner[0]);
        if (shape.termination == "CUSTOMIZED")
            text +=
                "<customReadTermination><stringTermination>STOP</stringTermination></customReadTermination>";
        return text + "</list>";
    }
    }
    return {};
}

std::string RandomLanguage::GetDocument() const
{
    std::string text = "<keyword name='RUNSPEC'/>";
    for (std::size_t i = 0; i < roots_.size(); ++i)
        text += "<keyword" + Attribute("name", "KEY" + std::to_string(i)) + "><data>" + Describe(roots_[i])
            + "</data></keyword>\n";
    return text;
}

// Decks

std::string RandomLanguage::MakeDeck(int keywords, int& comments)
{
    text_ = "RUNSPEC\n";
    comments_ = 0;
    for (int i = 0; i < keywords; ++i) {
        const auto root = static_cast<std::size_t>(Pick(static_cast<int>(roots_.size())));
        if (Toss(4))
            text_ += "\n-- c" + std::to_string(++comments_) + ".\n";
        text_ += "KEY" + std::to_string(root);
        WriteData(roots_[root]);
        text_ += Toss(6) ? " -- c" + std::to_string(++comments_) + ".\n" : "\n";
    }
    comments = comments_;
    return text_;
}

void RandomLanguage::WriteData(const Shape& shape)
{
    const bool isContainer = shape.kind > Kind::Choice;
    const bool wasOneLine = std::exchange(isOneLine_, isContainer ? shape.termination == "EOL" : isOneLine_);
    switch (shape.kind) {
    case Kind::Record:
        WriteItems(shape);
        break;
    case Kind::List:
        WriteList(shape);
        break;
    case Kind::Map:
        for (const char* const name : {"A", "B", "W1"}) {
            if (Toss())
                Word(name + std::string(Toss() ? "" : Toss(4) ? "=$ONE" : "=" + std::to_string(Pick(99))));
        }
        End();
        break;
    case Kind::Raw:
        text_ += "\n raw -- text ' /\nof two lines\nENDRAW";
        break;
    case Kind::Line:
        text_ += "\n  a line " + std::to_string(Pick(99));
        break;
    case Kind::Integer:
    case Kind::Real:
    case Kind::Text:
    case Kind::Truth:
    case Kind::Choice:
        WriteScalar(shape);
        break;
    }
    isOneLine_ = wasOneLine;
}

void RandomLanguage::WriteItems(const Shape& record)
{
    std::size_t given = record.inner.size();
    while (record.termination == "SLASH" && given > 1 && record.inner[given - 1].mayBeMissing
        && record.inner[given - 1].kind <= Kind::Choice && Toss())
        --given;
    for (std::size_t i = 0; i < given; ++i) {
        if (i == 0 && isOneLine_ && record.inner[0].kind != Kind::Line)
            text_ += "\n ";
        WriteData(record.inner[i]);
    }
    if (record.termination == "SLASH")
        End();
}

void RandomLanguage::WriteList(const Shape& list)
{
    const Shape& element = list.inner.front();
    const int size = list.size > 0 ? list.size : Pick(6);
    for (int i = 0; i < size; ++i) {
        const int repeats = element.kind <= Kind::Choice && Toss() ? 1 + Pick(size - i) : 1;
        i += repeats - 1;
        if (element.kind > Kind::Choice)
            WriteData(element);
        else if (list.mayBeMissing && Toss(3))
            Word(std::to_string(repeats) + "*");
        else
            Word((repeats > 1 ? std::to_string(repeats) + "*" : "") + MakeValue(element));
    }
    if (element.termination == "EOL")
        text_ += "\n";
    if (list.termination == "SLASH")
        End();
    else if (list.termination == "CUSTOMIZED")
        text_ += "\n STOP";
}

void RandomLanguage::WriteScalar(const Shape& shape)
{
    Word(shape.mayBeMissing && Toss(3) ? (Toss() ? "1*" : "*") : MakeValue(shape));
}

std::string RandomLanguage::MakeValue(const Shape& shape)
{
    static const char* const numbers[] = {"0.25", "-1.5E-7", "1e22", "12", "3D2", "+.5", "0.1", "123456.789"};
    static const char* const texts[] = {"P1", "'A B'", "\"it's\"", "'STOP'", "X-Y", "'3*4'", "''", "'--'"};
    switch (shape.kind) {
    case Kind::Integer:
        return Toss(8) ? variable : std::to_string(Pick(20) - 9);
    case Kind::Real:
        return Toss(8) ? variable : numbers[Pick(8)];
    case Kind::Truth:
        return Toss() ? "YES" : "F";
    case Kind::Choice:
        return Toss() ? "OIL" : Toss() ? "'GAS LIFT'" : "'3*X'";
    default:
        return texts[Pick(8)];
    }
}

void RandomLanguage::Word(const std::string& word)
{
    MaybeComment();
    text_ += (Toss(5) && !isOneLine_ ? "\n  " : " ") + word;
}

void RandomLanguage::End()
{
    MaybeComment();
    text_ += " /";
    if (Toss(8))
        text_ += " remark c" + std::to_string(++comments_) + ".";
    text_ += "\n";
}

void RandomLanguage::MaybeComment()
{
    if (!isOneLine_ && Toss(12))
        text_ += (Toss() ? "\n-- c" : " -- c") + std::to_string(++comments_) + ".\n";
}

} // namespace Veld::Quor::Tests
