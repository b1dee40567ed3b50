"""A fault must be where it says, and nowhere in comments, texts or declarations."""

import unittest

from places import code_of, enumerations, places

CASES = [
    ("condition", "if (a.b(c)) // (d\n", ["if (!(a.b(c))) // (d\n"]),
    ("condition", "if (const auto* p = f()) {\n", []),
    ("condition", "if constexpr (a) {\n", []),
    ("logic", "f(T&& a) { return a && b; }\n", ["f(T&& a) { return a || b; }\n"]),
    ("boundary", "vector<int> v; i < 3; s << i; a->b\n", ["vector<int> v; i <= 3; s << i; a->b\n"]),
    ("equality", "a == b; c = d; e != f\n", ["a != b; c = d; e != f\n", "a == b; c = d; e == f\n"]),
    ("constant", "n1 + 7; x1 * 0.5; 1'000; true\n",
        ["n1 - 7; x1 * 0.5; 1'000; true\n", "n1 + 8; x1 * 0.5; 1'000; true\n", "n1 + 7; x1 * 0.5; 1'000; false\n"]),
    ("constant", "\"1 \\\" 2\"; '3'; /* 4 */ // 5\n#if 6\n", []),
    ("statement", "{\n    f(\"a;\", b);\n    int c = 1;\n    return d;\n}\n", ["{\n    ;\n    int c = 1;\n    return d;\n}\n"]),
    ("statement", "{\n    a.b += 1;\n    g(1,\n        2);\n}\n",
        ["{\n    ;\n    g(1,\n        2);\n}\n", "{\n    a.b += 1;\n    ;\n}\n"]),
    ("enumerator", "f(Kind::B, Other::A);\n", ["f(Kind::A, Other::A);\n"]),
    ("arguments", "f(a, b.c); g(int a, int b); h(a, a); k(a, b, c)\n", ["f(b.c, a); g(int a, int b); h(a, a); k(a, b, c)\n"]),
    ("arguments", "f(\"a\", b); g(b, \"a\")\n", []),
]


class Places(unittest.TestCase):
    def test_changes(self):
        enums = enumerations(["enum class Kind : int {\n    A, // first\n    B = 4\n};\n"])
        for kind, text, expected in CASES:
            with self.subTest(kind=kind, text=text):
                found = [p for p in places("quor/data/X.cpp", text, enums) if p.kind == kind]
                self.assertEqual(sorted(text[: p.start] + p.after + text[p.end :] for p in found), sorted(expected))
                self.assertEqual(len(code_of(text)), len(text))


if __name__ == "__main__":
    unittest.main()
