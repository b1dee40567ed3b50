"""Printers for gdb: values without a value, metadata, data and keywords.

    (gdb) source tools/gdb/quor.py
    (gdb) print *data
    $1 = WCONPROD list of 2 = {[0] = record = {WELL = "P1", STATUS = no value, ...}, ...}

`print *pointer` of an interface shows the object behind it. In .gdbinit the line above is enough.
"""

import gdb

KEYWORDS = "Veld::Quor::Core::Keywords::"
SERVICE = "Veld::Quor::Core::Service::"
INT_MIN = -2147483648
DBL_MIN = 2.2250738585072014e-308


def plain(type_):
    return type_.strip_typedefs().unqualified()


def class_name(value):
    return plain(value.type).name or ""


def whole(value):
    """The object of which `value` is a base."""
    if value.type.code in (gdb.TYPE_CODE_REF, gdb.TYPE_CODE_RVALUE_REF):
        value = value.referenced_value()
    return value if value.dynamic_type == value.type else value.cast(value.dynamic_type)


def text(string):
    """The characters of a std::string, without quotes."""
    data, size = string["_M_dataplus"]["_M_p"], int(string["_M_string_length"])
    return data.string("utf-8", "replace", size)


def elements(vector):
    impl = vector["_M_impl"]
    at, end = impl["_M_start"], impl["_M_finish"]
    while at != end:
        yield at.dereference()
        at += 1


def pointee(unique):
    """Of a std::unique_ptr, whose first word it is; null for an empty one."""
    of = unique.type.strip_typedefs().template_argument(0)
    if of.code == gdb.TYPE_CODE_ARRAY:
        of = of.target()
    return unique.address.cast(of.pointer().pointer()).dereference()


class OptionalPrinter:
    def __init__(self, value):
        self.value = value

    def held(self):
        """None: no value."""
        of = plain(self.value.type.template_argument(0))
        storage = self.value["storage_"]
        if of.code == gdb.TYPE_CODE_BOOL:
            byte = int(storage["byte"])
            return None if byte == 255 else str(byte != 0).lower()
        if of.code == gdb.TYPE_CODE_FLT:
            return None if float(storage) == DBL_MIN else str(float(storage))
        if of.code in (gdb.TYPE_CODE_INT, gdb.TYPE_CODE_ENUM):
            return None if int(storage) == INT_MIN else str(storage)
        return '"%s"' % text(storage["text"]) if storage["set"] else None

    def to_string(self):
        held = self.held()
        return "no value" if held is None else held


def describe(md):
    """A node of metadata in a few words: "real BHP", "list of record"."""
    md = whole(md)
    kind = class_name(md).replace(KEYWORDS + "Keyword", "").replace("MDImpl", "").lower()
    if kind == "list" and pointee(md["item_"]):
        return "list of " + describe(pointee(md["item_"]).dereference())
    name = text(md["name_"])
    return (kind + " " + name).strip()


class MetadataPrinter:
    def __init__(self, value):
        self.value = whole(value)

    def to_string(self):
        return describe(self.value)

    def items(self):
        name = class_name(self.value)
        if name.endswith("KeywordRecordMDImpl"):
            return [pointee(info["metadata"]) for info in elements(self.value["items_"])]
        if name.endswith("KeywordListMDImpl") and pointee(self.value["item_"]):
            return [pointee(self.value["item_"])]
        return []

    def children(self):
        for i, item in enumerate(self.items()):
            yield "[%d]" % i, describe(item.dereference())


class RecordPrinter:
    def __init__(self, value):
        self.value = whole(value)

    def to_string(self):
        return "record"

    def children(self):
        held = self.value["elements_"]
        block = (held.address + 1).cast(gdb.lookup_type("char").pointer())  # behind the record
        for item in elements(held["layout_"].dereference()["items_"]):
            place = block + int(item["offset"])
            md = whole(item["md"].dereference())
            yield text(md["name_"]), self.at(place, item, md)

    def at(self, place, item, md):
        if not item["ops"]:
            data = gdb.lookup_type(KEYWORDS + "IKeywordData").pointer()
            return place.cast(data.pointer()).dereference().dereference()
        kinds = {"Boolean": "bool", "Integer": "int", "Choice": "int", "Real": "double"}
        kind = class_name(md).replace(KEYWORDS + "Keyword", "").replace("MDImpl", "")
        held = kinds.get(kind)
        if held is None:
            held = str(gdb.lookup_type("std::string").strip_typedefs())
        optional = gdb.lookup_type("%sOptional<%s, %sOptionalTraits<%s, void> >" % (SERVICE, held, SERVICE, held))
        return place.cast(optional.pointer()).dereference()


class ListPrinter:
    def __init__(self, value):
        self.value = whole(value)

    def items(self):
        held = self.value["elements_"]
        if "elements_" in [field.name for field in held.type.fields()]:
            held = held["elements_"]
            if held.type.code == gdb.TYPE_CODE_PTR:
                size = int(self.value["elements_"]["size_"])
                return [(held + i).dereference() for i in range(size)]
            return list(elements(held))
        return [item.dereference() for item in elements(held)]

    def to_string(self):
        name = text(whole(self.value["syntax_"].dereference())["name_"]) if self.value["syntax_"] else ""
        return (name + " list of %d" % len(self.items())).strip()

    def children(self):
        for i, item in enumerate(self.items()):
            yield "[%d]" % i, item


class KeywordPrinter:
    def __init__(self, value):
        self.value = whole(value)

    def to_string(self):
        data = pointee(self.value["dataMD_"])
        return "keyword %s: %s" % (text(self.value["name_"]), describe(data.dereference()) if data else "no data")


def look_up(value):
    type_ = plain(value.type)
    if type_.code in (gdb.TYPE_CODE_REF, gdb.TYPE_CODE_RVALUE_REF):
        return look_up(value.referenced_value())
    name = type_.name or ""
    if name.startswith(SERVICE + "Optional<"):
        return OptionalPrinter(value)
    if not name.startswith(KEYWORDS):
        return None
    try:
        name = class_name(whole(value))
    except gdb.error:
        return None  # not constructed yet
    short = name[len(KEYWORDS):]
    if short.startswith("Keyword") and short.endswith("MDImpl"):
        return MetadataPrinter(value)
    if short == "KeywordSyntax":
        return KeywordPrinter(value)
    if short == "GenericKeywordRecordDataImpl":
        return RecordPrinter(value)
    if short.startswith("GenericKeywordList"):
        return ListPrinter(value)
    return None


gdb.pretty_printers.append(look_up)
