"""What tools/failures.py finds, on small source trees made for the purpose."""
import pathlib
import subprocess
import sys
import tempfile
import textwrap
import unittest

TOOL = pathlib.Path(__file__).resolve().parents[2] / "tools" / "failures.py"

SOURCE = r'''
    namespace
    {
    constexpr CThrower Fail{L".\\Lamp"};   // Fail(1, L"Comment");
    }

    void CLamp::Burn(const wchar_t* name,
                     unsigned long time)
    {
        if (!::LightLamp(name))
            Fail(12, L"LightLamp");
    }
'''
TEST = r'''
    TEST(Lamp, Burn)
    {
        EXPECT_FAILURE(12, L".\\Lamp", L"LightLamp", 5, lamp.Burn(L"a, b", 3));
    }
'''


class FailuresTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name)

    def write(self, name, text):
        path = self.root / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(textwrap.dedent(text), encoding="utf-8")

    def run_tool(self, *arguments):
        done = subprocess.run([sys.executable, str(TOOL), "--root", str(self.root), *arguments],
                              capture_output=True, text=True, check=False)
        self.assertEqual("", done.stderr)
        return done.returncode, done.stdout

    def document(self):
        return (self.root / "docs" / "failures.md").read_text(encoding="utf-8")

    def assert_fault(self, part):
        status, output = self.run_tool()
        self.assertIn(part, output)
        self.assertEqual(1, status)

    def test_rows_that_agree_pass(self):
        self.write("src/os/Lamp.cpp", SOURCE)
        self.write("tests/os/Lamp_test.cpp", TEST)
        self.assertEqual((0, ""), self.run_tool())

    def test_document_names_the_place(self):
        self.write("src/os/Lamp.cpp", SOURCE)
        self.run_tool()
        self.assertIn("| `.\\Lamp` | 12 | `LightLamp` | `CLamp::Burn` |", self.document())

    def test_comment_is_no_failure(self):
        self.write("src/os/Lamp.cpp", SOURCE)
        self.run_tool()
        self.assertNotIn("Comment", self.document())

    def test_function_name_in_a_constant(self):
        self.write("src/Lamp.cpp", r'''
            constexpr CThrower Fail{L".\\Lamp"};
            static bool Load(int size)
            {
                constexpr wchar_t function[] = L"vantor::CLamp::Load";
                for (;;)
                    Fail(3, function, 13);
            }
        ''')
        self.run_tool()
        self.assertIn("| 3 | `vantor::CLamp::Load` | `Load` |", self.document())

    def test_failure_in_a_constructor_with_a_condition(self):
        self.write("src/Lamp.cpp", r'''
            constexpr CThrower Fail{L".\\Lamp"};
            CLamp::CLamp(int size) : CHandle(nullptr), m_size{size}
            {
                if (size == '{')
                {
                    Fail(4, L"CreateLamp");
                }
            }
        ''')
        self.run_tool()
        self.assertIn("| 4 | `CreateLamp` | `CLamp::CLamp` |", self.document())

    def test_failure_in_a_member_that_stands_in_its_class(self):
        self.write("src/Lamp.cpp", r'''
            constexpr CThrower Fail{L".\\Lamp"};
            class CWick
            {
                void Trim() const { Fail(5, L"Trim"); }
            };
        ''')
        self.run_tool()
        self.assertIn("| 5 | `Trim` | `CWick::Trim` |", self.document())

    def test_failure_in_a_lambda_belongs_to_the_function_around_it(self):
        self.write("src/Lamp.cpp", r'''
            constexpr CThrower Fail{L".\\Lamp"};
            void CLamp::Snuff()
            {
                const auto snuff = [&](int which) { Fail(6, L"Snuff"); };
            }
        ''')
        self.run_tool()
        self.assertIn("| 6 | `Snuff` | `CLamp::Snuff` |", self.document())

    def test_failure_in_an_operator(self):
        self.write("src/Matrix.cpp", r'''
            [[noreturn]] void Fail(unsigned int line, const wchar_t* function, CMatrixException::EException kind)
            {
                throw CMatrixException(line, L".\\Matrix", function, kind);
            }
            double& matrix::operator()(unsigned int i, unsigned int j)
            {
                Fail(105, L"vantor::matrix::operator ()", CMatrixException::InvalidIndex);
            }
        ''')
        self.run_tool()
        self.assertIn("| `.\\Matrix` | 105 | `vantor::matrix::operator ()` | `matrix::operator()` |", self.document())

    def test_throw_that_no_test_expects(self):
        self.write("src/os/Lamp.cpp", SOURCE)
        self.assert_fault("src/os/Lamp.cpp:11: .\\Lamp 12 (LightLamp) is expected by no test")

    def test_row_that_is_thrown_nowhere(self):
        self.write("src/os/Lamp.cpp", SOURCE)
        self.write("tests/os/Lamp_test.cpp", TEST + TEST.replace("12", "13"))
        self.assert_fault("tests/os/Lamp_test.cpp:9: .\\Lamp 13 is thrown nowhere")

    def test_row_with_another_function(self):
        self.write("src/os/Lamp.cpp", SOURCE)
        self.write("tests/os/Lamp_test.cpp", TEST.replace("LightLamp", "LightLampW"))
        self.assert_fault("is LightLamp at src/os/Lamp.cpp:11, not LightLampW")

    def test_row_in_a_comment_does_not_count(self):
        self.write("src/os/Lamp.cpp", SOURCE)
        self.write("tests/os/Lamp_test.cpp", TEST.replace("EXPECT", "// EXPECT"))
        self.assert_fault("is expected by no test")

    def test_number_with_two_meanings(self):
        self.write("src/os/Lamp.cpp", SOURCE)
        self.write("src/os/Lamp2.cpp", SOURCE.replace("LightLamp", "DouseLamp"))
        self.assert_fault(".\\Lamp 12 is DouseLamp in CLamp::Burn, but LightLamp in CLamp::Burn")

    def test_number_under_two_tags_is_two_failures(self):
        self.write("src/os/Lamp.cpp", SOURCE)
        self.write("src/os/Lantern.cpp", SOURCE.replace(r".\\Lamp", r".\\Lantern"))
        self.write("tests/os/Lamp_test.cpp", TEST + TEST.replace(r".\\Lamp", r".\\Lantern"))
        self.assertEqual((0, ""), self.run_tool())

    def test_position_instead_of_a_number(self):
        self.write("src/os/Lamp.cpp", SOURCE.replace("12", "__LINE__"))
        self.assert_fault("src/os/Lamp.cpp:11: cannot be read: '__LINE__' is no number")

    def test_check_of_a_stale_document(self):
        self.write("src/os/Lamp.cpp", SOURCE)
        self.write("tests/os/Lamp_test.cpp", TEST)
        self.run_tool()
        self.write("docs/failures.md", self.document() + "by hand\n")
        self.assertEqual((1, "docs/failures.md: stale; run tools/failures.py\n"), self.run_tool("--check"))

    def test_check_of_a_fresh_document(self):
        self.write("src/os/Lamp.cpp", SOURCE)
        self.write("tests/os/Lamp_test.cpp", TEST)
        self.run_tool()
        self.assertEqual((0, ""), self.run_tool("--check"))

    def test_check_writes_nothing(self):
        self.write("src/os/Lamp.cpp", SOURCE)
        self.run_tool("--check")
        self.assertFalse((self.root / "docs").exists())

    def test_tree_without_failures_is_a_fault(self):
        self.write("src/os/Lamp.cpp", "int lamp;")
        self.assert_fault("no failure found at all")


if __name__ == "__main__":
    unittest.main()
