"""Tests the comparison of small sources, read by clang, with a small SDK."""

import pathlib
import tempfile
import unittest

import clang_dump
from checks import Checks
from comparison import Exceptions
from crates import Sdk

SDK = '''
extern_class!(
    #[unsafe(super(NSObject))]
    pub struct NSThing;
);
impl NSThing {
    extern_methods!(
        #[unsafe(method(sharedThing))]
        pub fn sharedThing() -> Retained<NSThing>;
        #[unsafe(method(moveBy:))]
        pub fn moveBy(&self, speed: NSThingSpeed) -> bool;
    );
}
pub type NSThingSpeed = NSInteger;
pub type NSThingSound = NSInteger;
pub const NSThingFast: NSThingSpeed = 1 << 4;
pub const NSThingLoud: NSThingSound = 1;
extern "C" {
    pub fn NSThingCount(thing: &NSThing) -> NSUInteger;
    pub fn NSThingTotal(counts: *const NSUInteger) -> NSUInteger;
    pub static NSThingName: &'static NSThing;
}
'''

FOUNDATION = '''
typedef signed char BOOL;
__attribute__((objc_root_class)) @interface NSThing
+ (id)sharedThing;
- (BOOL)moveBy:(long)speed;
- (BOOL)moveTo:(long)place;
@end
enum { NSThingFast = 16, NSThingSlow = 17, NSThingLoud = 1 };
extern "C" unsigned long NSThingCount(NSThing* thing);
extern "C" NSThing* const NSThingName;
'''


class ComparisonTest(unittest.TestCase):
    def setUp(self):
        self.sdk = Sdk()
        self.sdk.add(SDK)
        self.exceptions = Exceptions("")

    def problems(self, body, foundation=FOUNDATION):
        """Returns the problems of a function with the given body."""
        with tempfile.TemporaryDirectory() as folder:
            pathlib.Path(folder, "foundation.h").write_text(foundation)
            source = pathlib.Path(folder, "source.mm")
            source.write_text(f'#include "foundation.h"\nvoid F(id unknown) {{ {body} }}\n')
            compiler = clang_dump.Compiler(["clang++", "-x", "objective-c++"], folder)
            found = self.checks().problems_of_source(compiler, source)
        return [problem.removeprefix("source.mm: ") for problem in found]

    def problems_of_header(self, text):
        with tempfile.TemporaryDirectory() as folder:
            header = pathlib.Path(folder, "header.h")
            header.write_text(text)
            found = self.checks().problems_of_header(header)
        return [problem.removeprefix("header.h: ") for problem in found]

    def checks(self):
        return Checks(self.sdk, self.exceptions)

    def test_finds_nothing_when_everything_agrees(self):
        self.assertEqual(self.problems(
            "[[NSThing sharedThing] moveBy:NSThingFast]; (void)@selector(moveBy:);"
            "[unknown moveBy:NSThingCount(NSThingName)];"), [])

    def test_finds_selector_of_other_foundation(self):
        self.assertEqual(self.problems("[[NSThing sharedThing] moveTo:1];"),
                         ["-[NSThing moveTo:] is unknown to the SDK"])
        self.assertEqual(self.problems("[unknown moveTo:1];"),
                         ["-[id moveTo:] is unknown to the SDK"])
        self.assertEqual(self.problems("(void)@selector(moveTo:);"),
                         ["@selector(moveTo:) is unknown to the SDK"])

    def test_finds_class_method_in_place_of_object_method(self):
        self.assertEqual(self.problems("[NSThing moveBy:1];",
                                       FOUNDATION.replace("- (BOOL)moveBy", "+ (BOOL)moveBy")),
                         ["+[NSThing moveBy:] is unknown to the SDK"])

    def test_finds_other_type(self):
        self.assertEqual(
            self.problems("[unknown moveBy:1];", FOUNDATION.replace("(long)speed", "(int)speed")),
            ["-[id moveBy:] is (i64) -> bool in the SDK, but (i32) -> bool here"])
        self.assertEqual(
            self.problems("NSThingCount(0);", FOUNDATION.replace("unsigned long NS", "float NS")),
            ["NSThingCount is (object) -> u64 in the SDK, but (object) -> f32 here"])

    def test_finds_other_class(self):
        foundation = FOUNDATION.replace("@interface NSThing", "@interface GSThing")
        self.assertEqual(self.problems("[GSThing sharedThing];",
                                       foundation.replace("NSThing*", "GSThing*")),
                         ["+[GSThing sharedThing]: GSThing is not a class of the SDK"])

    def test_finds_other_value(self):
        self.assertEqual(self.problems("int i = NSThingFast;", FOUNDATION.replace("16", "1 << 3")),
                         ["NSThingFast is 16 in the SDK, but 8 here"])
        self.assertEqual(self.problems("int i = NSThingSlow;"),
                         ["NSThingSlow is unknown to the SDK"])

    def test_finds_constant_of_other_enumeration(self):
        for value in ("NSThingLoud", "NSThingFast | NSThingLoud"):
            self.assertEqual(self.problems(f"[unknown moveBy:{value}];"),
                             ["NSThingLoud is of NSThingSound in the SDK, but -[id moveBy:] "
                              "expects NSThingSpeed"])

    def test_finds_other_declaration(self):
        self.assertEqual(self.problems_of_header(
            "typedef unsigned long Size;\nstruct Thing;\nenum { NSThingFast = 16 };\n"
            "Size NSThingTotal(const Size* counts);\n"), [])
        self.assertEqual(
            self.problems_of_header(
                "#define NSMacro 1\nenum { NSThingFast = 15 };\nstruct NSRecord { int i; };\n"
                "long NSThingTotal(const unsigned int* counts);\n"),
            ["NSThingTotal is (*u64) -> u64 in the SDK, but (*u32) -> i64 here",
             "NSThingFast is 16 in the SDK, but 15 here",
             "NSMacro cannot be compared with the SDK",
             "NSRecord cannot be compared with the SDK"])

    def test_finds_name_hidden_by_macro(self):
        foundation = FOUNDATION.replace("enum { NSThingFast = 16,",
                                        "#define NSThingFast 15\nenum {")
        self.assertEqual(self.problems("[unknown moveBy:NSThingFast];", foundation),
                         ["NSThingFast is a macro here, which hides it from the comparison"])

    def test_finds_type_of_other_foundation(self):
        foundation = FOUNDATION + "typedef int NSThingKind;"
        self.assertEqual(self.problems("NSThingKind kind;", foundation),
                         ["NSThingKind is unknown to the SDK"])

    def test_exception_is_used_or_reported(self):
        self.exceptions = Exceptions("# Comment\nReason:\n  -[NSObject moveTo:]\n  NSOther\n")
        self.assertEqual(self.problems("[[NSThing sharedThing] moveTo:1];"), [])
        self.assertEqual(self.exceptions.unused(), ["NSOther"])


if __name__ == "__main__":
    unittest.main()
