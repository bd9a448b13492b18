"""Reads the declarations of the library from its headers, and derives the index forms.

The grammar of names decides what a function is: `_Idx` at the end marks an index form written by hand, `noxs` and
`noxi` a dispatched primitive, `nox` before a capital a core query, anything else a function of the array layer.
"""
import re
from dataclasses import dataclass, field
from pathlib import Path

# Index forms whose name isn't the primitive's with _Idx behind it.
INDEX_NAME = {"noxsCopyLE_1u": "noxsCopy_1u_Idx"}
# Exports that are one function with another.
ONE_WITH = {"MinIndx_8u_Idx": "MaxIndx_8u_Idx"}
# Functions of the array layer that have none in spite of their arrays.
WITHOUT_INDEX_FORM = ("Powc", "Rampd")


@dataclass
class Parameter:
    type: str        # without const and without the pointer star of an array
    name: str
    array: bool
    constant: bool
    nullable: bool

    @property
    def kind(self):
        return "Array" if self.array else "Pointer" if self.type.endswith("*") else "Value"

    def __str__(self):
        const = "const " if self.constant else ""
        return f"{const}{self.type}{'' if self.type.endswith('*') else ' '}{self.name}{'[]' if self.array else ''}" \
            if not self.type.endswith("*") else f"{const}{self.type} {self.name}"


@dataclass
class Function:
    name: str
    result: str
    parameters: list
    header: str = ""         # as in an #include; empty for a derived index form
    internal: bool = False   # has a row but no export
    comment: str = ""        # of the declaration, without its frame
    primitive: object = field(default=None, repr=False)   # of an index form

    @property
    def dispatched(self):
        return bool(re.match(r"nox[si][A-Z]", self.name)) and not self.name.endswith("_Idx")

    @property
    def in_array_builds(self):
        """Whether its body stands in the builds of the array layer."""
        return self.header.startswith("nox/array/")

    @property
    def array_layer(self):
        return not self.name.startswith("nox") and not self.name.endswith("_Idx")


def parse_parameters(text):
    text = " ".join(text.split())
    if text == "void":
        return []
    out = []
    for item in text.split(","):
        item = item.strip()
        nullable = item.startswith("NOX_NULLABLE ")
        item = item.removeprefix("NOX_NULLABLE ")
        constant = item.startswith("const ")
        item = item.removeprefix("const ")
        m = re.fullmatch(r"([\w ]+?)(\*+ ?| )(\w+)(\[\])?", item)
        if not m:
            raise SystemExit(f"can't read the parameter '{item}'")
        out.append(Parameter(m[1].strip() + m[2].strip(), m[3], bool(m[4]), constant, nullable))
    return out


def parse(text, header, macro):
    comments = {m.end(): re.sub(r"^ \* ?", "", m[1], flags=re.M).strip()
                for m in re.finditer(r"/\*\*((?:[^*]|\*(?!/))*)\*/\s*", text)}
    found = list(re.finditer(macro + r"\(([^()]+)\)\s+(\w+)\(([^()]*)\);", text))
    # A declaration that the pattern doesn't match must not vanish without a word: every use of the macro counts.
    code = re.sub(r"/\*.*?\*/|^[ \t]*#.*?(?<!\\)$", lambda m: re.sub(r"[^\n]", " ", m[0]), text, flags=re.S | re.M)
    for m in re.finditer(rf"\b{macro}\b[^;]*", code):
        if m.start() not in {f.start() for f in found}:
            raise SystemExit(f"{header}: can't read the declaration '{' '.join(m[0].split())}'")
    for m in found:
        yield Function(m[2], m[1], parse_parameters(m[3]), header, comment=comments.get(m.start(), ""))


def read_headers(include, internal):
    functions = []
    for path in sorted(Path(include).rglob("*.h")):
        header = path.relative_to(include).as_posix()
        functions += parse(path.read_text(), header, "NOX_API")
    for f in parse(Path(internal).read_text(), Path(internal).name, "NOX_INTERNAL"):
        f.internal, f.header = True, "core/internal.h"
        functions.append(f)
    names = [f.name for f in functions]
    twice = sorted({n for n in names if names.count(n) > 1})
    if twice:
        raise SystemExit(f"declared more than once: {', '.join(twice)}")
    return functions


def index_name(array):
    """pSrc1 -> src1Idx"""
    bare = array[1:] if re.match(r"p[A-Z]", array) else array
    return bare[0].lower() + bare[1:] + "Idx"


def has_index_form(f):
    takes_array = any(p.array for p in f.parameters)
    if f.array_layer:
        return takes_array and f.name not in WITHOUT_INDEX_FORM
    if not f.dispatched:
        return False
    return (takes_array or f.name.startswith("noxi")
            or re.match(r"noxs(Malloc_|Free$|GetLibVersion$)", f.name))


def index_forms(functions):
    """The index forms that only forward; one declared by hand is left alone."""
    declared = {f.name for f in functions}
    out = []
    for f in functions:
        name = INDEX_NAME.get(f.name, f.name + "_Idx")
        if not has_index_form(f) or name in declared:
            continue
        parameters = []
        for p in f.parameters:
            parameters.append(p)
            if p.array:
                parameters.append(Parameter("int", index_name(p.name), False, False, False))
        out.append(Function(name, f.result, parameters, primitive=f))
    return out


def documentation(functions):
    """The comments by the functions' names, with the texts that they copy from others in their places."""
    own = {f.name: f.comment for f in functions}

    def details(text):
        return re.split(r"\n\n|\n(?=@)", text, maxsplit=1)[-1]

    def whole(name):
        text = re.sub(r"@copydoc (\w+)", lambda m: whole(m[1]), own[name])
        return re.sub(r"@copydetails (\w+)", lambda m: details(whole(m[1])), text)
    return {name: whole(name) for name in own}


def brief(comment):
    """The first sentence or two of a comment, on one line."""
    text = re.split(r"\n\n|\n(?=@)|$", comment.removeprefix("@brief "), maxsplit=1)[0]
    return " ".join(text.split())


def parameter_list(parameters):
    return ", ".join(map(str, parameters)) or "void"


def type_tag(type_name):
    """A C identifier for a type: 'Nox64f' -> 'Nox64f', 'int*' -> 'Pointer'."""
    if type_name.endswith("*"):
        return "Pointer"
    return type_name.replace(" ", "_").replace("const_", "").capitalize() if not type_name.startswith("Nox") else type_name


def target_tag(parameter):
    """The tag of a value, of an array's elements or of the single result behind a pointer; 'Pointer' for a record."""
    single = parameter.type.removesuffix("*").strip()
    if re.fullmatch(r"int|unsigned int|Nox\d+(u|s|f|sc|fc)", single):
        return type_tag(single)
    return type_tag(parameter.type)
