"""The installed package serves a consumer by CMake and one by pkg-config, from wherever it was installed to."""
import os
import shutil
import unittest

from settings import BUILD, CC, SOURCE, Scratch

CONSUMER = """#include <nox/nox.h>
#include <stdio.h>
int main(void) {
  Nox64f a[3] = {1, 2, 3};
  NoxStatus status = noxsAdd_64f(a, a, a, 3);
  if (status == noxStsNoErr) status = noxsAdd_64f_Idx(a, 1, a, 0, a, 2, 1);
  printf("%s; %g\\n", noxGetStatusString(status), a[2]);
  return status;
}
"""
PROJECT = """cmake_minimum_required(VERSION 3.25)
project(consumer LANGUAGES C)
find_package(nox 1.0 REQUIRED)
add_executable(consumer consumer.c)
target_link_libraries(consumer PRIVATE nox::nox)
"""
ANSWER = "noxStsNoErr: No errors; 6\n"


class Package(Scratch):
    def setUp(self):
        super().setUp()
        self.prefix = self.dir / "moved"
        self.must(os.environ["NOX_CMAKE"], "--install", BUILD, "--prefix", self.dir / "installed")
        (self.dir / "installed").rename(self.prefix)
        self.source = self.write("consumer/consumer.c", CONSUMER)

    def find(self, name):
        found = list(self.prefix.rglob(name))
        self.assertEqual(len(found), 1, f"{name}: {found}")
        return found[0]

    def test_cmake(self):
        self.write("consumer/CMakeLists.txt", PROJECT)
        build = self.dir / "build"
        self.must(os.environ["NOX_CMAKE"], "-S", self.dir / "consumer", "-B", build, "-G", os.environ["NOX_GENERATOR"],
                  f"-DCMAKE_MAKE_PROGRAM={os.environ['NOX_NINJA']}", "-DCMAKE_C_FLAGS=-m32",
                  f"-DCMAKE_C_COMPILER={CC[0]}", f"-DCMAKE_PREFIX_PATH={self.prefix}")
        self.must(os.environ["NOX_CMAKE"], "--build", build)
        self.assertEqual(self.must(build / "consumer"), ANSWER)

    @unittest.skipUnless(shutil.which("pkg-config"), "no pkg-config here")
    def test_pkg_config(self):
        environment = dict(os.environ, PKG_CONFIG_LIBDIR=str(self.find("nox.pc").parent))
        flags = self.must("pkg-config", "--cflags", "--libs", "nox", env=environment).split()
        program = self.dir / "consumer/consumer"
        self.must(*CC, "-std=c99", self.source, *flags, "-o", program)
        libraries = self.find("libnox.so").parent
        self.assertEqual(self.must(program, env=dict(os.environ, LD_LIBRARY_PATH=str(libraries))), ANSWER)

    def test_no_paths_of_the_build(self):
        for path in self.prefix.rglob("*"):
            if path.suffix in (".cmake", ".pc", ".h"):
                text = path.read_text()
                for place in (BUILD, SOURCE, self.dir):
                    self.assertNotIn(str(place), text, path)
