// Clones data, changes the clone, and compares the two: by all their values, and by their identity.

#include "quor/Keywords.h"

#include <iostream>

using namespace Veld::Quor::Core::Keywords;

namespace {

void Compare(const IKeywordData& a, const IKeywordData& b)
{
    std::cout << (a == b ? "equal" : "different") << ", "
              << (KeywordIdentity(&a).Compare(&b) ? "the same well" : "another well") << '\n';
}

} // namespace

int main()
{
    // A list of records; the name of the well, the first item, is marked as identifier.
    const IKeywordSyntax& wefac = *KeywordSyntaxTable::Instance().Lookup("WEFAC", true);
    const auto data = KeywordDataFactory::Instance().Construct(wefac);
    IKeywordRecordData& record = AddRecord(AsList(*data));
    Set(record, 0, "P1");
    Set(record, 1, 0.9);

    const auto clone = data->CloneSafely();
    Compare(*data, *clone);
    Set(record, 1, 0.8);
    Compare(*data, *clone);
    Set(record, 0, "P2");
    Compare(*data, *clone);
}
