// Records of twelve items, beside messages of a library whose messages are described at run time too.

#include "benchmarks/data/Data.h"
#include "benchmarks/support/Comparison.h"

#include <google/protobuf/descriptor.h>
#include <google/protobuf/descriptor.pb.h>
#include <google/protobuf/dynamic_message.h>
#include <google/protobuf/util/message_differencer.h>

#include <cstdint>
#include <string>

namespace Veld::Quor::Benchmarks {

using namespace Core::Keywords;
using google::protobuf::FieldDescriptorProto;
using google::protobuf::Message;
using google::protobuf::util::MessageDifferencer;

namespace {

constexpr std::size_t few = 2'000; // they stay in a cache
constexpr std::size_t many = 100'000;

using Messages = std::unique_ptr<Message>;

/// A message that holds records: `repeated Record records`, a record of six doubles and six integers.
const Message& Prototype()
{
    static const Message& prototype = []() -> const Message& {
        google::protobuf::FileDescriptorProto file;
        file.set_name("records.proto");
        auto& record = *file.add_message_type();
        record.set_name("Record");
        for (int i = 1; i <= 12; ++i) {
            auto& field = *record.add_field();
            field.set_name("f" + std::to_string(i));
            field.set_number(i);
            field.set_label(FieldDescriptorProto::LABEL_OPTIONAL);
            field.set_type(i % 2 ? FieldDescriptorProto::TYPE_DOUBLE : FieldDescriptorProto::TYPE_INT32);
        }
        auto& list = *file.add_message_type();
        list.set_name("List");
        auto& field = *list.add_field();
        field.set_name("records");
        field.set_number(1);
        field.set_label(FieldDescriptorProto::LABEL_REPEATED);
        field.set_type(FieldDescriptorProto::TYPE_MESSAGE);
        field.set_type_name("Record");
        auto& pool = *new google::protobuf::DescriptorPool;
        auto& factory = *new google::protobuf::DynamicMessageFactory(&pool);
        return *factory.GetPrototype(pool.BuildFile(file)->FindMessageTypeByName("List"));
    }();
    return prototype;
}

Messages MakeMessages(std::size_t count)
{
    Messages list(Prototype().New());
    const auto& reflection = *list->GetReflection();
    const auto* const records = list->GetDescriptor()->field(0);
    for (std::size_t i = 0; i < count; ++i)
        reflection.AddMessage(list.get(), records);
    return list;
}

/// As `Fill` does for records.
void FillMessages(Message& list)
{
    const auto* const records = list.GetDescriptor()->field(0);
    for (int i = 0; i < list.GetReflection()->FieldSize(list, records); ++i) {
        Message& record = *list.GetReflection()->MutableRepeatedMessage(&list, records, i);
        for (int item = 0; item < 12; ++item) {
            const auto* const field = record.GetDescriptor()->field(item);
            if (item % 2 == 0)
                record.GetReflection()->SetDouble(&record, field, item);
            else
                record.GetReflection()->SetInt32(&record, field, item);
        }
    }
}

Messages CopyOf(const Message& list)
{
    Messages copy(list.New());
    copy->CopyFrom(list);
    return copy;
}

void CompareMaking()
{
    Compare({"records: made and freed", "protobuf DynamicMessage", 0.4, "ns", few,
        [] { return SecondsOf([] { Keep(MakeRecords(few)); }); },
        [] { return SecondsOf([] { Keep(MakeMessages(few)); }); }, 21});
    const Data data = MakeRecords(few);
    const Messages list = MakeMessages(few);
    Fill(*data);
    FillMessages(*list);
    Compare({"records: copied and freed", "protobuf DynamicMessage", 0.07, "ns", few,
        [&] { return SecondsOf([&] { Keep(data->CloneSafely()); }); },
        [&] { return SecondsOf([&] { Keep(CopyOf(*list)); }); }, 21});
    const Data copy = data->CloneSafely();
    const Messages copies = CopyOf(*list);
    Compare({"records: compared", "protobuf MessageDifferencer", 0.03, "ns", few,
        [&] { return SecondsOf([&] { Keep(*data == *copy); }); },
        [&] { return SecondsOf([&] { Keep(MessageDifferencer::Equals(*list, *copies)); }); }});
}

void CompareMany()
{
    Compare({"100,000 records: built", "protobuf DynamicMessage", 0.3, "ns", many,
        [] {
            Data data;
            return SecondsOf([&] { data = MakeRecords(many); });
        },
        [] {
            Messages list;
            return SecondsOf([&] { list = MakeMessages(many); });
        }});
    Compare({"100,000 records: freed", "protobuf DynamicMessage", 0.15, "ns", many,
        [] {
            Data data = MakeRecords(many);
            return SecondsOf([&] { data.reset(); });
        },
        [] {
            Messages list = MakeMessages(many);
            return SecondsOf([&] { list.reset(); });
        }});
    const Data data = MakeRecords(many);
    const Messages list = MakeMessages(many);
    Fill(*data);
    FillMessages(*list);
    Data copy;
    Messages copies;
    Compare({"100,000 records: copied", "protobuf DynamicMessage", 0.05, "ns", many,
        [&] {
            copy.reset();
            return SecondsOf([&] { copy = data->CloneSafely(); });
        },
        [&] {
            copies.reset();
            return SecondsOf([&] { copies = CopyOf(*list); });
        }});
    copy = data->CloneSafely();
    copies = CopyOf(*list);
    Compare({"100,000 records: compared", "protobuf MessageDifferencer", 0.03, "ns", many,
        [&] { return SecondsOf([&] { Keep(*data == *copy); }); },
        [&] { return SecondsOf([&] { Keep(MessageDifferencer::Equals(*list, *copies)); }); }, 3});
}

void CompareMemory()
{
    const auto bytesOf = [](auto make) {
        const std::size_t before = AllocatedBytes();
        const auto made = make(many);
        return static_cast<double>(AllocatedBytes() - before);
    };
    Compare({"100,000 records: memory", "protobuf DynamicMessage", 0.75, "bytes", many,
        [&] { return bytesOf(MakeRecords); }, [&] { return bytesOf(MakeMessages); }, 1});
}

/// A stop of the iterator reaches an item; the peer asks for each field by its description.
void CompareStops()
{
    const Data data = MakeRecords(many);
    const Messages list = MakeMessages(many);
    Fill(*data);
    FillMessages(*list);
    Compare({"iterator: stops of records", "protobuf reflection", 0.5, "ns", 12.0 * many,
        [&] {
            return SecondsOf([&] {
                std::size_t count = 0;
                for (ConstDataIterator it(*data); it != ConstDataIterator::End(); ++it)
                    count += it->isOptional ? 1U : 0U;
                Keep(count);
            });
        },
        [&] {
            return SecondsOf([&] {
                const auto* const records = list->GetDescriptor()->field(0);
                std::size_t count = 0;
                for (const Message& record :
                    list->GetReflection()->GetRepeatedFieldRef<Message>(*list, records)) {
                    const auto& reflection = *record.GetReflection();
                    for (int i = 0; i < record.GetDescriptor()->field_count(); ++i)
                        count += reflection.HasField(record, record.GetDescriptor()->field(i)) ? 1U : 0U;
                }
                Keep(count);
            });
        }});
}

} // namespace

void CompareRecords()
{
    if (IsWanted({"records: made and freed", "records: copied and freed", "records: compared"}))
        CompareMaking();
    if (IsWanted({"100,000 records: built", "100,000 records: freed", "100,000 records: copied",
            "100,000 records: compared"}))
        CompareMany();
    CompareMemory();
    if (IsWanted({"iterator: stops of records"}))
        CompareStops();
}

} // namespace Veld::Quor::Benchmarks
