'use strict';

// Describes values that JSON does not distinguish: -0, holes, accessors, lone surrogates, and arrays
// that differ from a new array of the given prototype. Runs no code of the page.

function hash(text) {
  let sum = 0x811c9dc5;
  for (let i = 0; i < text.length; ++i) sum = Math.imul(sum ^ text.charCodeAt(i), 0x01000193);
  return (sum >>> 0).toString(16);
}

// A long text is represented by its beginning, its length and its hash.
function shorten(text) {
  if (text.length <= 120) return text;
  return `${text.slice(0, 40)}... ${text.length} ${hash(text)}`;
}

function quote(string) {
  return JSON.stringify(string).replace(
      /[^ -~]/g, (unit) => `\\u${unit.charCodeAt(0).toString(16).padStart(4, '0')}`);
}

function describeElement(array, index, prototype) {
  const own = Object.getOwnPropertyDescriptor(array, index);
  if (!own) return 'hole';
  if (!('value' in own)) return 'accessor';
  const usual = own.writable && own.enumerable && own.configurable;
  return (usual ? '' : '!') + describe(own.value, prototype);
}

function describeArray(array, prototype) {
  const elements = [];
  for (let i = 0; i < array.length; ++i) elements.push(describeElement(array, i, prototype));
  const holes = elements.filter((element) => element === 'hole').length;
  const names = Object.getOwnPropertyNames(array).length - 1;
  return (Object.getPrototypeOf(array) === prototype ? '' : 'foreign ') +
      (Object.isExtensible(array) ? '' : 'closed ') +
      (names + holes === elements.length ? '' : 'extended ') + `[${elements.join()}]`;
}

function describe(value, prototype) {
  if (typeof value === 'string') return quote(value);
  if (Object.is(value, -0)) return '-0';
  if (Array.isArray(value)) return describeArray(value, prototype);
  if (value !== null && /^(object|function|symbol)$/.test(typeof value)) return typeof value;
  return String(value);
}
