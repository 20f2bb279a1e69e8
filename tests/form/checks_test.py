#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Breaks each rule of form in a tree of its own, and looks whether its check says so."""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

HERE = Path(__file__).resolve().parent


def found_by(check, name, text):
    """What a check says about a tree with one file; empty if it is content."""
    with tempfile.TemporaryDirectory() as top:
        path = Path(top) / name
        path.parent.mkdir(parents=True)
        path.write_text(text, encoding="utf-8")
        run = subprocess.run([HERE / check, top], capture_output=True, text=True, check=False)
        assert run.returncode == (1 if run.stdout else 0), run
        return run.stdout


def function(lines, inner="    step();\n", head="void work() {\n"):
    return head + inner * (lines - 2) + "}\n"


class Sizes(unittest.TestCase):
    def expect(self, says, name, text):
        found = found_by("check-sizes", name, text)
        self.assertIn(says, found) if says else self.assertEqual("", found)

    def test_a_long_source(self):
        self.expect("301 lines, at most 300", "src/a.cpp", "// x\n" * 301)
        self.expect("", "src/a.cpp", "// x\n" * 300)

    def test_a_long_header(self):
        self.expect("151 lines, at most 150", "src/a.h", "// x\n" * 151)

    def test_a_long_test(self):
        self.expect("401 lines, at most 400", "tests/a.h", "// x\n" * 401)

    def test_a_wide_row_of_a_design(self):
        self.expect("a.design.h:2: 141 columns", "src/a.design.h", "// x\n//" + "x" * 139 + "\n")
        self.expect("", "src/a.h", "//" + "x" * 139 + "\n")

    def test_a_long_function(self):
        self.expect("src/a.cpp:1: work has 31 lines, at most 30", "src/a.cpp", function(31, "    if (a) b();\n"))
        self.expect("", "src/a.cpp", function(30, "    if (a) b();\n"))

    def test_a_plain_list_may_be_longer(self):
        self.expect("", "src/a.cpp", function(60))
        self.expect("work has 61 lines, at most 60", "src/a.cpp", function(61))

    def test_a_switch_may_be_longer(self):
        head = "int A::work(int a) const {\n    switch (a) {\n"
        self.expect("", "src/a.cpp", head + "    case 1: if (b) return 1;\n" * 50 + "    }\n}\n")

    def test_functions_of_every_look_are_found(self):
        body = "    if (a) b();\n" * 40 + "}\n"
        for head in (
            "template <typename T>\nstd::map<int, T> work(T t) noexcept {\n",
            "namespace a {\nnamespace {\nauto work() -> int {\n",
            "class A : public B {\n    int work(const char* text = \"{\") const override {\n",
            "A::work(int a) : B(a), m_b{1}, m_c(\n    2) {\n",
            "bool operator==(A a, A b) {\n",
            "A::~work() {\n",
        ):
            self.expect("at most 30", "src/a.cpp", head + body)


class State(unittest.TestCase):
    def expect(self, says, text):
        found = found_by("check-state", "src/a.cpp", text)
        self.assertIn(says, found) if says else self.assertEqual("", found)

    def test_variables_of_a_namespace(self):
        for text in ("int count = 0;", "QString text;", "std::vector<int> all{1, 2};", "const char* name = nullptr;"):
            self.expect(text[:8], f"namespace a {{\n{text}\n}}\n")
        self.expect("std::function<void()> f", "std::function<void()> f;\n")
        self.expect("struct G g", "struct G {\n    int a;\n} g;\n")

    def test_locals_that_stay(self):
        self.expect("a.cpp:2: ", "void f() {\n    static int count = 0;\n}\n")
        self.expect("thread_local", "void f() {\n    thread_local QString text;\n}\n")

    def test_members_of_a_class(self):
        self.expect("s_first", "class A {\n    inline static A* s_first = nullptr;\n};\n")
        self.expect("s_count", "class A {\n    static int s_count;\n};\n")

    def test_constants_functions_and_types_are_none(self):
        self.expect(
            "",
            """
            using A = int;
            class B;
            enum class C { one, two };
            struct D { int a = 1; static constexpr int b = 2; static D make(int a); };
            constexpr int e = 1;
            const QString f = QStringLiteral("int g = 0;");
            const char* const h = "x";
            void i(int j = 1);
            static int k() { static const QList<int> table = {1, 2}; int l = 3; return l; }
            template <typename T> T m(T n) { return n; }
            extern "C" int o(int);
            """,
        )


class Tests(unittest.TestCase):
    def test_rows_without_a_test(self):
        rows = "    void every_byte_is_data() {\n    }\n"
        self.assertIn("aTest.cpp:1: every_byte_is_data is never run", found_by("check-tests", "tests/a/aTest.cpp", rows))
        self.assertEqual("", found_by("check-tests", "tests/a/aTest.cpp", "    void initTestCase_data() {\n    }\n"))
        self.assertEqual("", found_by("check-tests", "tests/a/aTest.cpp", rows + "    void every_byte_is() {\n    }\n"))


if __name__ == "__main__":
    sys.exit(unittest.main())
