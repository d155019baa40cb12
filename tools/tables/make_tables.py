#!/usr/bin/env python3
"""Makes the sources of Common/tables from a folder of tab-separated facts.

usage: make_tables.py [--check] FOLDER

FOLDER holds tags.tsv, uids.tsv; below current/: tags.tsv, uids.tsv and private_tags.tsv; below iod/: classes.tsv,
class_modules.tsv, modules.tsv, elements.tsv and query_levels.tsv; below context_groups/: groups.tsv and concepts.tsv.
The same facts always give the same sources, byte for byte. With --check nothing is written: the exit status is 1 when
a source differs from what would be made. A fact that cannot be represented ends the program with status 2 and says
which one it is.
"""
import os
import re
import sys

OUT = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "Common", "tables")
UNBOUNDED = 0xFFFFFFFF
EXACT = 0xFFFFFFFF

# code, name, length limit, kind and length rule bits, unit size
VALUE_REPRESENTATIONS = """
AE  Application Entity      16          0x0201  1
AS  Age String              4           0x0200  1
AT  Attribute Tag           4           0x0100  4
CS  Code String             16          0x0201  1
DA  Date                    8           0x0200  1
DS  Decimal String          16          0x0201  1
DT  Date Time               26          0x0201  1
FD  Floating Point Double   8           0x0100  8
FL  Floating Point Single   4           0x0100  4
IS  Integer String          12          0x0201  1
LO  Long String             64          0x0201  1
LT  Long Text               10240       0x0401  1
OB  Other Byte String       0           0x0103  1
OW  Other Word String       0           0x0103  2
PN  Person Name             64          0x0202  1
SH  Short String            16          0x0201  1
SL  Signed Long             4           0x0100  4
SQ  Sequence of Items       0           0x0004  1
SS  Signed Short            2           0x0100  2
ST  Short Text              1024        0x0401  1
TM  Time                    16          0x0201  1
UI  Unique Identifier       64          0x0201  1
UL  Unsigned Long           4           0x0100  4
UN  Unknown                 0           0x0103  1
US  Unsigned Short          2           0x0100  2
UT  Unlimited Text          0xFFFFFFFE  0x0401  1
OF  Other Float String      0xFFFFFFFC  0x0101  4
"""


class BadFact(Exception):
    pass


# ---------------------------------------------------------------- reading


def read(folder, name, columns):
    path = os.path.join(folder, *name.split("/"))
    with open(path, encoding="utf-8", newline="") as f:
        rows = [line.split("\t") for line in f.read().split("\n") if line]
    if rows[0] != columns.split():
        raise BadFact("%s: the header is not %s" % (name, columns))
    for number, row in enumerate(rows[1:], 2):
        if len(row) != len(rows[0]):
            raise BadFact("%s line %d: %d columns instead of %d" % (name, number, len(row), len(rows[0])))
    return rows[1:]


def vr_code(text):
    if not re.fullmatch("[A-Z]{2}", text):
        raise BadFact("%r is no VR" % text)
    return ord(text[0]) << 8 | ord(text[1])


def vr_choice(text):
    """("US or SS") -> codes of the first and of the second VR, 0 for none."""
    if text == "NONE":  # items and delimiters
        text = "OB"
    codes = [vr_code(part) for part in re.split(" or |_", text)]
    return codes[0], codes[1] if len(codes) > 1 else 0


def multiplicity(text):
    """("2-2n") -> smallest, largest, divider."""
    match = re.fullmatch(r"(?:(\d+)-)?(\d*)(n?)", text)
    if not match or text == "":
        raise BadFact("%r is no value multiplicity" % text)
    low, factor, many = match.groups()
    if many:
        divider = int(factor) if factor else 1
        return int(low) if low else divider, UNBOUNDED, divider
    if low and low != factor:
        return int(low), int(factor), 1
    return int(factor), int(factor), int(factor)


# ---------------------------------------------------------------- hashes (CurrentTables.cpp has the same)


def number_slot(key, bits):
    return (key * 0x9E3779B97F4A7C15 & 0xFFFFFFFFFFFFFFFF) >> 64 - bits


def text_key(text):
    key = 0xCBF29CE484222325
    for byte in text.encode("utf-8"):
        key = (key ^ byte) * 0x100000001B3 & 0xFFFFFFFFFFFFFFFF
    return key


def make_slots(keys):
    """Open addressing over (row, key) pairs, at most two thirds full."""
    if len({key for _, key in keys}) != len(keys):
        seen = set()
        raise BadFact("two rows have the key %s" % [hex(k) for _, k in keys if k in seen or seen.add(k)][0])
    bits = 4
    while 2 << bits < 3 * len(keys):
        bits += 1
    slots = [0] * (1 << bits)
    for row, key in keys:
        at = number_slot(key, bits)
        while slots[at]:
            at = (at + 1) % len(slots)
        slots[at] = row + 1
    if max(slots) > 0xFFFF:
        raise BadFact("too many rows for 16-bit slots")
    return slots, bits


# ---------------------------------------------------------------- writing


def literal(text):
    out = ""
    for byte in text.encode("utf-8"):
        char = chr(byte)
        if byte < 0x20 or byte > 0x7E:
            out += "\\%03o" % byte
        elif char in "\\\"" or (char == "?" and out.endswith("?")):
            out += "\\" + char
        else:
            out += char
    return '"%s"' % out


def text_size(text):
    return len(text.encode("utf-8")) + 1


class Texts:
    """A block of zero-terminated texts; equal ones are kept once."""

    def __init__(self):
        self.size = 0
        self.lines = []
        self.places = {}

    def add(self, *texts):
        """Adds texts that stand one behind the other; returns the offset of the first."""
        if texts not in self.places:
            self.places[texts] = self.size
            self.lines.append("    " + " ".join(literal(t + "\0").replace("\\000", "\\0") for t in texts))
            self.size += sum(text_size(t) for t in texts)
        return self.places[texts]

    def source(self, name):
        return ["const char %s[] =" % name] + self.lines[:-1] + [self.lines[-1] + ";", ""]


class Indexed:
    """Values that rows name by number."""

    def __init__(self, values=()):
        self.values = list(values)

    def index(self, value):
        if value not in self.values:
            self.values.append(value)
        place = self.values.index(value)
        if place > 0xFF:
            raise BadFact("more than 256 different values")
        return place


def source_head(header, what):
    return ["// Made by tools/tables/make_tables.py; change the facts, not this file.", "// clang-format off", "//",
            "// " + what, "", '#include "%s"' % header, "",
            "#pragma GCC diagnostic ignored \"-Woverlength-strings\"", "", "namespace vdicom {", ""]


SOURCE_TAIL = ["} // namespace vdicom", ""]


def slots_source(name, keys):
    slots, bits = make_slots(keys)
    lines = ["static constexpr std::uint16_t %sNumbers[] = {" % name]
    for start in range(0, len(slots), 20):
        lines.append("    %s," % ",".join(str(s) for s in slots[start:start + 20]))
    return lines + ["};", "const SlotTable %s = {%sNumbers, %d};" % (name, name, bits), ""]


def array_source(declaration, items):
    return ["const %s[] = {" % declaration] + ["    %s," % item for item in items] + ["};", ""]


def choices_source(vr_name, vrs, vm_name, vms):
    def letters(code):
        return "VDicomVRCode('%c', '%c')" % (code >> 8, code & 0xFF) if code else "0"

    def number(n):
        return "DICOM_UNDEFINED" if n == UNBOUNDED else str(n)

    return (array_source("VRChoice " + vr_name, ["{%s, %s}" % (letters(a), letters(b)) for a, b in vrs.values]) +
            array_source("Multiplicity " + vm_name, ["{%s}" % ", ".join(map(number, vm)) for vm in vms.values]))


def built_in_source(what, comment, table, row_type, fields, texts, rows):
    """`rows` are lists of macro arguments; `fields` and `texts` are how a row and its texts are made of them."""
    lines = source_head("BuiltInRows.h", what)
    lines += ["// " + comment, "#define ROWS(ROW) \\"]
    lines += ["    ROW(%s) \\" % ", ".join(row) for row in rows[:-1]] + ["    ROW(%s)" % ", ".join(rows[-1]), ""]
    lines += ["namespace {", "", "constexpr std::uint32_t n = DICOM_UNDEFINED;" if row_type == "TagRow" else "",
              "#define AS_ROW%s," % fields, "constexpr %s kRows[] = {ROWS(AS_ROW)};" % row_type, "",
              "#define AS_TEXT%s" % texts, "constexpr char kTexts[] = ROWS(AS_TEXT);", "", "} // namespace", "",
              "// The literal's own zero is not part of the texts.",
              "const BuiltInTable<%s> %s = {kRows, sizeof kRows / sizeof kRows[0], kTexts, sizeof kTexts - 1};" %
              (row_type, table), ""]
    text = "\n".join(lines + SOURCE_TAIL)
    return re.sub("\n\n\n+", "\n\n", text)


# ---------------------------------------------------------------- the tables


def built_in_tags(folder):
    rows = []
    for code, mask, name, vr, low, high, divider in read(folder, "tags.tsv",
                                                         "code mask name VR minVM maxVM divideVM"):
        vr_code(vr)
        if high in ("n", "FFFFFFFF"):
            high = "n"
        rows.append(["0x%08X" % int(code, 16), "0x%08X" % int(mask, 16), literal(name), vr, str(int(low)), high,
                     str(int(divider))])
    return built_in_source("The built-in data dictionary.",
                           "tag, mask, name, VR, smallest and largest value multiplicity, divider", "kTagTable",
                           "TagRow",
                           "(code, mask, name, vr, low, high, divider) "
                           "{code, mask, VDicomVRCode(#vr[0], #vr[1]), low, high, divider}",
                           '(code, mask, name, vr, low, high, divider) name "\\0"', rows)


def built_in_vrs():
    rows = []
    for line in VALUE_REPRESENTATIONS.strip().split("\n"):
        code, name, length, restrict, unit = re.split("  +", line)
        rows.append([code, literal(name), length, restrict, unit])
    return built_in_source("The built-in value representations.", "VR, name, length limit, kind, unit size", "kVRTable",
                           "VRRow", "(vr, name, length, kind, unit) {VDicomVRCode(#vr[0], #vr[1]), length, kind, unit}",
                           '(vr, name, length, kind, unit) name "\\0"', rows)


def built_in_uids(folder):
    rows = [[literal(uid), kind, literal(name)] for uid, kind, name in read(folder, "uids.tsv", "uid kind name")]
    return built_in_source("The built-in UIDs.", "UID, kind (DICOMUIDTYPE), name", "kUIDTable", "UIDRow",
                           "(uid, kind, name) {kind}", '(uid, kind, name) uid "\\0" name "\\0"', rows)


def current_tags(folder):
    rows, texts, masks, vrs, vms = [], Texts(), Indexed([EXACT]), Indexed(), Indexed()
    codes, keywords = [], []
    for number, (code, mask, vr, vm, name, retired, keyword) in enumerate(
            read(folder, "current/tags.tsv", "code mask VR VM name retired keyword")):
        code, mask = int(code, 16), int(mask, 16)
        if code & ~mask or code >> 16 & 1:
            raise BadFact("current tag %08X does not fit its mask or is private" % code)
        place = masks.index(mask)
        codes.append((number, place << 32 | code))
        if keyword:
            keywords.append((number, text_key(keyword)))
        rows.append("{0x%08X,%d,%d,%d,%d,%d}" % (code, texts.add(name, keyword), place, vrs.index(vr_choice(vr)),
                                                 vms.index(multiplicity(vm)), int(retired)))
    lines = source_head("CurrentRows.h", "The attributes of today's edition of the standard (PS3.6).")
    lines.insert(lines.index('#include "CurrentRows.h"') + 1, '#include "VDicomTypes.h"')
    lines += array_source("CurrentTagRow kCurrentTagRows", rows)
    lines += ["const std::size_t kCurrentTagCount = %d;" % len(rows), ""]
    lines += array_source("std::uint32_t kCurrentMasks", ["0x%08X" % m for m in masks.values])
    lines += ["const std::size_t kCurrentMaskCount = %d;" % len(masks.values), ""]
    lines += choices_source("kCurrentVRs", vrs, "kCurrentVMs", vms)
    lines += slots_source("kCurrentTagSlots", codes) + slots_source("kCurrentKeywordSlots", keywords)
    lines += texts.source("kCurrentTagTexts")
    return "\n".join(lines + SOURCE_TAIL)


def current_uids(folder):
    rows, texts, types, keys = [], Texts(), Indexed(), []
    for number, (uid, name, kind, retired, keyword) in enumerate(
            read(folder, "current/uids.tsv", "uid name type retired keyword")):
        keys.append((number, text_key(uid)))
        rows.append("{%d,%d,%d}" % (texts.add(uid, name, keyword), types.index(texts.add(kind)), int(retired)))
    lines = source_head("CurrentRows.h", "The UIDs of today's edition of the standard (PS3.6 A).")
    lines += array_source("CurrentUIDRow kCurrentUIDRows", rows)
    lines += ["const std::size_t kCurrentUIDCount = %d;" % len(rows), ""]
    lines += array_source("std::uint32_t kCurrentUIDTypes", [str(t) for t in types.values])
    lines += slots_source("kCurrentUIDSlots", keys)
    lines += texts.source("kCurrentUIDTexts")
    return "\n".join(lines + SOURCE_TAIL)


ELEMENT, REPEATING, GROUP, CREATORS = range(4)


def private_key(creator, group, element, name):
    """-> (creator, group, form, low byte of the element), and whether the block byte was written out."""
    if element.upper() == "XX":
        form = CREATORS if "Creator" in name else GROUP
        return (creator, int(group, 16), form, 0), False
    form = ELEMENT
    if group.upper().endswith("XX"):
        form, group = REPEATING, group[:2] + "00"
    return (creator, int(group, 16), form, int(element, 16) & 0xFF), len(element) == 4


def private_tags(folder):
    facts = read(folder, "current/private_tags.tsv", "creator group element VR VM name")
    # The block byte plays no part: of an element written with and without it, keep the row that names it, the one
    # without block byte first.
    best = {}
    for creator, group, element, vr, vm, name in facts:
        key, has_block = private_key(creator, group, element, name)
        rank = (name == "Unknown", has_block)
        if key not in best or rank < best[key][0]:
            best[key] = rank, vr, vm, name
    creators = sorted({key[0] for key in best})
    number_of = {creator: number for number, creator in enumerate(creators)}
    texts, vrs, vms = Texts(), Indexed(), Indexed()
    offsets = [texts.add(creator) for creator in creators]
    rows, keys = [], []
    for number, key in enumerate(sorted(best)):
        creator, group, form, element = key
        _, vr, vm, name = best[key]
        keys.append((number, number_of[creator] << 32 | group << 16 | form << 8 | element))
        rows.append("{%d,%d,0x%04X,0x%02X,%d,%d,%d}" % (texts.add(name), number_of[creator], group, element, form,
                                                        vrs.index(vr_choice(vr)), vms.index(multiplicity(vm))))
    lines = source_head("CurrentRows.h", "Vendors' private attributes, by private creator.")
    lines.insert(lines.index('#include "CurrentRows.h"') + 1, '#include "VDicomTypes.h"')
    lines += array_source("PrivateTagRow kPrivateTagRows", rows)
    lines += ["const std::size_t kPrivateTagCount = %d;" % len(rows), ""]
    lines += choices_source("kPrivateVRs", vrs, "kPrivateVMs", vms)
    lines += array_source("std::uint32_t kPrivateCreators", [str(o) for o in offsets])
    lines += ["const std::size_t kPrivateCreatorCount = %d;" % len(offsets), ""]
    lines += slots_source("kPrivateCreatorSlots", [(i, text_key(c)) for i, c in enumerate(creators)])
    lines += slots_source("kPrivateTagSlots", keys)
    lines += texts.source("kPrivateTexts")
    return "\n".join(lines + SOURCE_TAIL)


# ---------------------------------------------------------------- information object definitions

CLASS, MODULE, ELEMENT_ROW = range(3)
MODULE_USAGE = {"M": 0, "C": 1, "U": 2}
ELEMENT_USAGE = {"1": 3, "1C": 4, "2": 5, "2C": 6, "3": 7}
KEY_USAGE = {"unique": 0, "required": 1, "optional": 2}
CLASS_USAGE = 2
MOST_IOD_TAGS = 2048  # kMostIODTags


class IODNode:
    def __init__(self, kind, code, name, usage, description):
        self.kind, self.code, self.name, self.usage, self.description = kind, code, name, usage, description
        self.children = []

    def copy(self):
        twin = IODNode(self.kind, self.code, self.name, self.usage, self.description)
        twin.children = [child.copy() for child in self.children]
        return twin

    def child(self, kind, code):
        for node in self.children:
            if (node.kind, node.code) == (kind, code):
                return node
        raise BadFact("no %08X below %s" % (code, self.name))


def element_trees(rows, usages):
    """(key, order, depth, tag, name, usage, description) rows -> {key: top nodes}."""
    trees, stacks = {}, {}
    for key, _, depth, tag, name, usage, description in rows:
        stack = stacks.setdefault(key, [])
        if not 1 <= int(depth) <= len(stack) + 1:
            raise BadFact("element %s of %s: depth %s below nothing" % (tag, key, depth))
        del stack[int(depth) - 1:]
        node = IODNode(ELEMENT_ROW, int(tag, 16), name, usages[usage], description)
        (stack[-1].children if stack else trees.setdefault(key, [])).append(node)
        stack.append(node)
    return trees


def iod_classes(folder):
    """The class nodes with everything below them."""
    arrays = element_trees(read(folder, "iod/elements.tsv", "array order depth tag name type description"),
                           ELEMENT_USAGE)
    queries = element_trees(read(folder, "iod/query_levels.tsv", "class order depth tag name key description"),
                            KEY_USAGE)
    modules = {number: (name, array) for number, name, array in read(folder, "iod/modules.tsv", "module name array")}
    classes = {}
    for number, name, uid in read(folder, "iod/classes.tsv", "class name sop_class_uid"):
        classes[number] = IODNode(CLASS, int(number), name, CLASS_USAGE, uid)
        classes[number].children = queries.get(number, [])
    for owner, _, number, usage, array, parent in read(folder, "iod/class_modules.tsv",
                                                       "class order module usage array parent"):
        name, usual = modules[number]
        module = IODNode(MODULE, int(number), name, MODULE_USAGE[usage], "")
        module.children = [node.copy() for node in arrays[array or usual]]
        place = classes[owner]
        if parent:
            above, *tags = parent.split("/")
            place = place.child(MODULE, int(above))
            for tag in tags:
                place = place.child(ELEMENT_ROW, int(tag, 16))
        place.children.append(module)
    return list(classes.values())


def iods(folder):
    classes = iod_classes(folder)
    texts = Texts()
    texts.add("")  # offset 0: no text
    tags, modules, arrays, order, counts = {}, {}, {}, [], [0, 0, 0]

    def number_of(node):
        """Elements and modules are named by their place in a table of codes and names."""
        if node.kind == CLASS:
            return node.code
        table = tags if node.kind == ELEMENT_ROW else modules
        known = table.setdefault(node.code, (len(table), node.name))
        if known[1] != node.name:
            raise BadFact("%08X has two names, %r and %r" % (node.code, known[1], node.name))
        return known[0]

    def array(nodes):
        """The number of the array with these rows; equal arrays are kept once. 0 is the empty one."""
        if not nodes:
            return 0
        if len({(node.kind, node.code) for node in nodes}) != len(nodes):
            raise BadFact("a row stands twice beside %08X" % nodes[0].code)
        rows = []
        for node in nodes:
            counts[node.kind] += 1
            name = texts.add(node.name) if node.kind == CLASS else 0
            rows.append((number_of(node), array(node.children), node.kind, node.usage, name,
                         texts.add(node.description)))
        rows = tuple(rows)
        if rows not in arrays:
            arrays[rows] = len(arrays) + 1
            order.append(rows)
        return arrays[rows]

    top = array(classes)
    first, starts, rows = 0, [0], []
    for content in order:
        starts.append(first)
        first += len(content)
        rows += ["{%d,%d,%d,%d,%d}" % (number, children, kind, usage, description)
                 for number, children, kind, usage, _, description in content]
    starts.append(first)
    if max(first, len(order)) > 0xFFFF or len(tags) > MOST_IOD_TAGS:
        raise BadFact("too many rows, arrays or tags for IODRows.h")
    class_names = [name for _, _, _, _, name, _ in order[-1]]
    names = ["{0x%08X,%d}" % (code, texts.add(name)) for code, (_, name) in tags.items()]
    module_names = ["{%d,%d}" % (code, texts.add(name)) for code, (_, name) in modules.items()]
    if [number for number, *_ in order[-1]] != list(range(len(class_names))) or top != len(order):
        raise BadFact("the classes are not numbered from 0 on")

    lines = source_head("IODRows.h", "The built-in information object definitions (PS3.3): classes, modules, elements.")
    lines += ["// The row's name (kIODClasses, kIODModules or kIODTags), array of its children, kind, usage, description.",
              "// Equal arrays stand once."]
    lines += array_source("IODRow kIODRows", rows)
    lines += array_source("std::uint16_t kIODArrays", [str(start) for start in starts])
    lines += array_source("IODName kIODClasses", ["{%d,%d}" % (i, name) for i, name in enumerate(class_names)])
    lines += array_source("IODName kIODModules", module_names)
    lines += array_source("IODName kIODTags", names)
    lines += texts.source("kIODTexts")
    lines += ["const IODTable kIODTable = {%d, %d, %d, %d, %d};" % (len(order), counts[CLASS] + counts[MODULE],
                                                                  counts[ELEMENT_ROW], len(names), texts.size), ""]
    return "\n".join(lines + SOURCE_TAIL)


# ---------------------------------------------------------------- context groups

MOST_INCLUDED = 7


def context_groups(folder):
    groups = read(folder, "context_groups/groups.tsv", "order cid name extensible year month day includes")
    concepts = {}
    for cid, _, designator, value, meaning in read(folder, "context_groups/concepts.tsv",
                                                   "cid order designator value meaning"):
        concepts.setdefault(cid, []).append((designator, value, meaning))
    numbers = {row[1].lower(): number for number, row in enumerate(groups)}
    if len(numbers) != len(groups) or set(cid.lower() for cid in concepts) - set(numbers):
        raise BadFact("a context group stands twice, or a concept has none")
    included = [[numbers[cid.lower()] for cid in row[7].split(",") if cid] for row in groups]

    def check(number, path):
        if number in path:
            raise BadFact("%s includes itself" % groups[number][1])
        for other in included[number]:
            check(other, path + (number,))

    texts, rows, places = Texts(), [], []
    for number, (_, cid, name, extensible, year, month, day, _) in enumerate(groups):
        check(number, ())
        own = concepts.get(cid, [])
        if len(included[number]) > MOST_INCLUDED or number > 0xFE or not all(all(concept) for concept in own):
            raise BadFact("%s has too many inclusions, or a concept without a text" % cid)
        others = ["%d" % (other + 1) for other in included[number]]
        rows.append("{%d,%d,%d,%d,%d,%d,%d,{%s}}" % (texts.add(cid, name), len(places), len(own), int(extensible),
                                                    int(year), int(month), int(day),
                                                    ",".join(others + ["0"] * (MOST_INCLUDED - len(others)))))
        places += [str(texts.add(*concept)) for concept in own]
    lines = source_head("ContextGroupRows.h", "The built-in context groups (PS3.16) and their coded concepts.")
    lines += ["// Texts, first concept, number of concepts, extensible, version, number of each included group from 1 on."]
    lines += array_source("ContextGroupRow kContextGroupRows", rows)
    lines += array_source("std::uint32_t kContextGroupConcepts", places)
    lines += texts.source("kContextGroupTexts")
    lines += ["const ContextGroupTable kContextGroupTable = {kContextGroupRows, %d, kContextGroupConcepts, "
              "kContextGroupTexts};" % len(rows), ""]
    return "\n".join(lines + SOURCE_TAIL)


def main(arguments):
    check = "--check" in arguments
    folders = [a for a in arguments if a != "--check"]
    if len(folders) != 1 or folders[0].startswith("-"):
        print(__doc__.strip(), file=sys.stderr)
        return 2
    folder = folders[0]
    try:
        sources = {"Tags.cpp": built_in_tags(folder), "VRs.cpp": built_in_vrs(), "UIDs.cpp": built_in_uids(folder),
                   "CurrentTags.cpp": current_tags(folder), "CurrentUIDs.cpp": current_uids(folder),
                   "PrivateTags.cpp": private_tags(folder), "IODs.cpp": iods(folder),
                   "ContextGroups.cpp": context_groups(folder)}
    except (BadFact, OSError, ValueError, KeyError) as error:
        print("make_tables.py: %s" % error, file=sys.stderr)
        return 2
    status = 0
    for name, text in sources.items():
        path = os.path.join(OUT, name)
        if check:
            with open(path, encoding="ascii", newline="") as f:
                if f.read() != text:
                    print("%s differs from the facts" % name, file=sys.stderr)
                    status = 1
        else:
            with open(path, "w", encoding="ascii", newline="\n") as f:
                f.write(text)
    return status


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
