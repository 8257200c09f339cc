# SPDX-License-Identifier: MIT
"""Conan 2 recipe that builds the source tree it lies in: conan create packaging/conan --build=missing"""

import os
import re

from conan import ConanFile
from conan.tools.cmake import CMake, CMakeDeps, CMakeToolchain, cmake_layout
from conan.tools.files import copy, load, rmdir

required_conan_version = ">=2.0"


class VeskFastInfosetRecipe(ConanFile):
    name = "vesk-fastinfoset"
    license = "MIT"
    description = "XML in the Fast Infoset binary encoding (ITU-T X.891), through SAX2 events"
    topics = ("xml", "fast-infoset", "binary-xml", "sax")
    package_type = "library"
    settings = "os", "arch", "compiler", "build_type"
    options = {"shared": [True, False], "fPIC": [True, False]}
    default_options = {"shared": False, "fPIC": True}
    implements = ["auto_shared_fpic"]

    @property
    def _source_tree(self):
        return os.path.join(self.recipe_folder, os.pardir, os.pardir)

    def set_version(self):
        project = load(self, os.path.join(self._source_tree, "CMakeLists.txt"))
        self.version = re.search(r"^ +VERSION ([0-9.]+)$", project, re.MULTILINE).group(1)

    def export_sources(self):
        for pattern in ("CMakeLists.txt", "LICENSE", "cmake/*", "foundation/*", "include/*", "src/*", "xml/*"):
            copy(self, pattern, src=self._source_tree, dst=self.export_sources_folder)

    def layout(self):
        cmake_layout(self)

    def requirements(self):
        # Private to Vesk::XML: no header names it, and only static libraries pass it on.
        self.requires("expat/[>=2.4 <3]")

    def generate(self):
        toolchain = CMakeToolchain(self)
        for part in ("TOOLS", "TESTS", "EXAMPLES"):
            toolchain.cache_variables[f"VESK_BUILD_{part}"] = False
        toolchain.cache_variables["VESK_WARNINGS_AS_ERRORS"] = False
        toolchain.generate()
        CMakeDeps(self).generate()

    def build(self):
        cmake = CMake(self)
        cmake.configure()
        cmake.build()

    def package(self):
        copy(self, "LICENSE", src=self.source_folder, dst=os.path.join(self.package_folder, "licenses"))
        CMake(self).install()
        # The consumer's generators write these from package_info.
        for folder in ("cmake", "pkgconfig"):
            rmdir(self, os.path.join(self.package_folder, "lib", folder))

    def package_info(self):
        self.cpp_info.set_property("cmake_file_name", "VeskFastInfoset")
        requires = {"Foundation": [], "XML": ["Foundation", "expat::expat"], "FastInfoset": ["XML"]}
        for name, needs in requires.items():
            component = self.cpp_info.components[name]
            component.libs = [f"Vesk{name}"]
            component.requires = needs
            component.set_property("cmake_target_name", f"Vesk::{name}")
            component.set_property("pkg_config_name", f"Vesk{name}")
