"""The README's first program is the one that is built here: whoever copies it from there gets what was tested."""
import pathlib
import sys

root = pathlib.Path(__file__).resolve().parents[2]
readme = (root / "README.md").read_text(encoding="utf-8")
status = 0
for name, language in (("first.cpp", "cpp"), ("CMakeLists.txt", "cmake")):
    text = pathlib.Path(__file__).with_name("first").joinpath(name).read_text(encoding="utf-8")
    if f"```{language}\n{text}```" not in readme:
        print(f"README.md shows another {name} than tests/consumer/first")
        status = 1
sys.exit(status)
