// The script half of array_packing.h. Runs in each script context before the page's own scripts, in
// a strict function that declares the native functions, and captures everything it needs. Packing
// and calls return undefined if code of a page would run or could notice: for arrays with getters,
// with other prototypes or with proxies of arrays, and if one of the two prototypes has an index.
/* global keep, areArrays */
const global = this;
const { parse } = JSON;
const { getOwnPropertyNames, getPrototypeOf } = Object;
const { isArray } = Array;
const { fromCharCode } = String;
const { apply } = Reflect;
const arrayPrototype = Array.prototype, objectPrototype = Object.prototype;
const lookUpGetter = Function.prototype.call.bind(objectPrototype.__lookupGetter__);

const kNull = 0, kFalse = 1, kTrue = 2, kInt = 3, kDouble = 4, kString = 5, kArray = 6;
// Limits: levels of arrays, because an array may contain itself; units and arrays in one call.
const kMaxDepth = 100, kChunk = 4096, kArrays = 64;
const double = new Float64Array(1);
const doubleUnits = new Uint16Array(double.buffer), doubleWords = new Int32Array(double.buffer);

// Returns whether `object` has an index. Indexes are the first names of an object's properties.
function hasIndex(object) {
  const name = getOwnPropertyNames(object)[0];
  return name !== undefined && `${name >>> 0}` === name;
}

// Returns whether arrays of up to `length` elements, and all arrays in them, inherit no element.
function prototypesArePlain(length) {
  if (getPrototypeOf(arrayPrototype) !== objectPrototype) return false;
  if (getPrototypeOf(objectPrototype) !== null) return false;
  if (length > 8) return !hasIndex(arrayPrototype) && !hasIndex(objectPrototype);
  for (let i = 0; i < length; ++i) if (i in arrayPrototype) return false;
  return true;
}

// Returns whether reading the elements of `array`, which is not a proxy, runs no code of the page.
function isReadable(array) {
  const { length } = array;
  if (getPrototypeOf(array) !== arrayPrototype || length > 0x7fffffff) return false;
  let arrays = [];
  for (let i = 0; i < length; ++i) {
    if (lookUpGetter(array, i) !== undefined) return false;
    if (isArray(array[i])) arrays[arrays.length] = array[i];
    if (arrays.length < kArrays) continue;
    if (!apply(areArrays, undefined, arrays)) return false;
    arrays = [];
  }
  return arrays.length === 0 || apply(areArrays, undefined, arrays);
}

// The state of one packing, in the form of packed_array.h.
let units, packed, contents;

function put(unit) {
  units[units.length] = unit;
  if (units.length < kChunk) return;
  packed += apply(fromCharCode, undefined, units);
  units = [];
}

function putWord(word) {
  put(word & 0xffff);
  put(word >>> 16);
}

function putNumber(number) {
  const isInt = (number | 0) === number || (number >>> 0) === number;  // of either sign
  if (isInt && (number !== 0 || 1 / number > 0)) {
    put(kInt);
    putWord(number);
  } else {
    put(kDouble);
    double[0] = number;
    for (let i = 0; i < 4; ++i) put(doubleUnits[i]);
  }
}

function putArray(array, depth) {
  if (depth > kMaxDepth || !isReadable(array)) return false;
  const { length } = array;
  putWord(length);
  for (let i = 0; i < length; ++i) {
    const element = array[i], type = typeof element;
    if (type === 'number') putNumber(element);
    else if (type === 'boolean') put(element ? kTrue : kFalse);
    else if (type === 'string') {
      put(kString);
      putWord(element.length);
      contents += element;
    } else if (isArray(element)) {
      put(kArray);
      if (!putArray(element, depth + 1)) return false;
    } else put(kNull);
  }
  return true;
}

// Native code sets `array`, which is not a proxy, and reads `packed`.
const packing = {
  __proto__: null,
  get packed() {
    const { array } = this;
    this.array = undefined;
    units = [];
    packed = contents = '';
    try {
      if (!prototypesArePlain(Infinity) || !putArray(array, 1)) return undefined;
      packed += apply(fromCharCode, undefined, units);
      return fromCharCode(packed.length & 0xffff, packed.length >>> 16) + packed + contents;
    } catch (error) {
      return undefined;  // a revoked proxy, a stack overflow, too long a string
    } finally {
      units = packed = contents = undefined;
    }
  },
};

// Replaces each placeholder in `array` by the value that the next two entries of `placeholders`
// describe, and returns the index of the entry after them. Begins at the index `next`.
function fillPlaceholders(array, placeholders, strings, next) {
  for (let i = 0; i < array.length; ++i) {
    if (isArray(array[i])) next = fillPlaceholders(array[i], placeholders, strings, next);
    else if (typeof array[i] === 'object' && array[i] !== null) {
      doubleWords[0] = placeholders[next];
      doubleWords[1] = placeholders[next + 1];
      array[i] = placeholders[next + 1] === null ? strings[placeholders[next]] : double[0];
      next += 2;
    }
  }
  return next;
}

// Calls `callback` with `name` and `array`, and returns whether it returned true.
function call(callback, name, array, length) {
  return prototypesArePlain(length) ? apply(callback, global, [name, array]) === true : undefined;
}

// Does the same with the array in the texts of list_text.h.
function callWithText(callback, name, elements, placeholders, ...strings) {
  let array;
  try {
    array = parse(elements);
    if (placeholders !== undefined) fillPlaceholders(array, parse(placeholders), strings, 0);
  } catch (error) {
    return undefined;  // a stack overflow
  }
  return call(callback, name, array, Infinity);
}

keep(packing, (f, name, ...array) => call(f, name, array, array.length), callWithText);
