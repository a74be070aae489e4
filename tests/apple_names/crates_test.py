"""Tests reading Rust source in the form of the crates."""

import unittest

import rust_text
from crates import Sdk

SOURCE = '''
extern_class!(
    /// Comments may have (brackets.
    #[unsafe(super(NSBase, NSObject))]
    #[cfg(feature = "Other")]
    pub struct NSThing<ObjectType: ?Sized = AnyObject>;
);

extern_conformance!(
    unsafe impl<ObjectType: ?Sized> NSMoving for NSThing<ObjectType> {}
);

impl<ObjectType: Message> NSThing<ObjectType> {
    extern_methods!(
        #[unsafe(method(thingWithFlag:block:))]
        #[unsafe(method_family = none)]
        pub unsafe fn thingWithFlag_block(
            flag: bool,
            block: &block2::DynBlock<dyn Fn(NonNull<NSThing>, c_int) -> Bool>,
        ) -> Option<Retained<NSThing<ObjectType>>>;

        #[unsafe(method(write:error:_))]
        pub fn write_error(&self, to: Option<&ObjectType>) -> Result<(), Retained<NSError>>;
    );
}

extern_protocol!(
    pub unsafe trait NSMoving: NSObjectProtocol {
        #[unsafe(method(moveBy:))]
        fn moveBy(&self, distance: ThingDistance) where Self: Sized;
    }
);

extern_class!(
    #[unsafe(super(NSObject))]
    pub struct NSBase;
);

#[repr(transparent)]
pub struct ThingOptions(pub NSUInteger);
bitflags::bitflags! {
    impl ThingOptions: NSUInteger {
        #[doc(alias = "ThingFast")]
        const Fast = 1<<4;
        #[doc(alias = "ThingLoud")]
        #[deprecated = "too loud"]
        const Loud = 0x20;
        #[doc(alias = "ThingFastAndLoud")]
        const FastAndLoud = ThingOptions::Fast.0|ThingOptions::Loud.0;
    }
}

pub type ThingDistance = c_double;
pub const ThingDefault: ThingOptions = ThingOptions(ThingOptions::Fast.0);
pub const ThingNowhere: NSInteger = NSIntegerMax as _;
pub const ThingVersion: c_double = 1.5;

extern "C" {
    pub static ThingName: &'static NSThing;
}

pub extern "C-unwind" fn ThingCount(thing: &NSThing) -> NSUInteger {
    extern "C-unwind" {
        fn ThingCount(thing: &NSThing, error: *mut *mut NSThing) -> NSUInteger;
    }
    unsafe { ThingCount(thing) }
}
'''


class CratesTest(unittest.TestCase):
    def setUp(self):
        self.sdk = Sdk()
        self.sdk.add(SOURCE)

    def method(self, selector, is_class=False):
        method, = self.sdk.methods(selector, is_class)
        kind = self.sdk.types.kind
        return method.owner, [kind(item) for item in method.parameters], kind(method.result)

    def test_class_has_methods_of_its_superclasses_and_protocols(self):
        self.assertEqual(self.sdk.owners("NSThing"), ["NSThing", "NSBase", "NSObject", "NSMoving"])

    def test_class_method_has_no_receiver(self):
        self.assertEqual(self.method("thingWithFlag:block:", True),
                         ("NSThing", ["bool", "block"], "object"))

    def test_error_is_last_parameter(self):
        self.sdk.types.objects.add("NSError")
        self.assertEqual(self.method("write:error:"), ("NSThing", ["object", "*object"], "bool"))

    def test_protocol_has_methods(self):
        self.assertEqual(self.method("moveBy:"), ("NSMoving", ["f64"], "void"))

    def test_function_has_parameters_of_inner_declaration(self):
        function = self.sdk.functions["ThingCount"]
        self.assertEqual([self.sdk.types.kind(item) for item in function.parameters],
                         ["object", "*object"])

    def test_constants_have_their_values(self):
        values = {name: self.sdk.constants.value(name) for name in (
            "ThingFast", "ThingLoud", "ThingFastAndLoud", "ThingDefault", "ThingNowhere",
            "ThingVersion")}
        self.assertEqual(values, {"ThingFast": 16, "ThingLoud": 32, "ThingFastAndLoud": 48,
                                  "ThingDefault": 16, "ThingNowhere": 2**63 - 1,
                                  "ThingVersion": None})

    def test_names_of_all_kinds_are_known(self):
        for name in ("NSThing", "ThingName", "ThingCount", "ThingFast", "ThingDistance",
                     "ThingOptions", "NSUInteger"):
            self.assertIn(name, self.sdk)
        self.assertNotIn("NSThin", self.sdk)

    def test_selector_must_match_parameters(self):
        with self.assertRaisesRegex(ValueError, "moveBy:to:"):
            self.sdk.add(SOURCE.replace("(moveBy:)", "(moveBy:to:)"))

    def test_type_must_be_known(self):
        with self.assertRaisesRegex(LookupError, "NSOther"):
            self.sdk.types.kind("&NSOther")

    def test_bracket_must_be_closed(self):
        with self.assertRaises(ValueError):
            rust_text.end_of_group("fn f(a: [u8; 2)", 4)


if __name__ == "__main__":
    unittest.main()
