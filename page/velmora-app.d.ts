// Types of velmora-app.js. Modules import the names; classic scripts use them as members of the
// global `VelmoraApp`. docs/page-module.md describes all rules.

/** A value that a message can carry from the page to the suite. */
export type Sendable = string | number | boolean | null | readonly Sendable[];

/** A value that a message can carry from the suite to the page. */
export type Received = string | number | boolean | null | Received[];

/** An AbortSignal, or its substitute before Chromium 66. */
export interface AbortSignalLike {
  readonly aborted: boolean;
  addEventListener(type: 'abort', listener: () => void): void;
  removeEventListener?(type: 'abort', listener: () => void): void;
}

export interface RequestOptions {
  /** Milliseconds from the request to its answer; unlimited by default. */
  timeout?: number;
  /** Rejects the request when it is aborted. The suite is not informed. */
  signal?: AbortSignalLike;
  /** Called with the values of each progress message, before the promise is settled. */
  progress?: (values: Received[]) => void;
}

/** The reason why a request was rejected. */
export interface RequestError extends Error {
  /**
   * SuiteError: the suite answered with an error, whose text is the message. TimeoutError and
   * AbortError: the options of the request ended it. UnloadError: the page of the request is gone.
   */
  name: 'SuiteError' | 'TimeoutError' | 'AbortError' | 'UnloadError';
}

/**
 * Called for each message of a name.
 *
 * @param args the arguments of the message; all listeners of the message get the same array
 * @returns true when the message is handled. It counts as handled when one listener returns true.
 */
export type Listener = (name: string, args: Received[]) => boolean | void;

/**
 * Sends a message with an identifier in front of its arguments, and resolves with the values of the
 * answer.
 *
 * Rejects with a RequestError, with an Error when the name is empty or not a string, or with a
 * TypeError when `args` is not an array.
 */
export function request(
  name: string, args?: readonly Sendable[], options?: RequestOptions): Promise<Received[]>;

/**
 * Adds a listener for messages of a name. Warns on the console when the listener is already
 * registered, and when a script of the frame has registered a callback for that name with
 * `app.setMessageCallback`.
 *
 * @throws TypeError when the listener is not a function; Error when the name is not a string
 */
export function on(name: string, listener: Listener): void;

/**
 * Removes a listener. Removing the last listener of a name also removes the callback in `app`.
 *
 * @returns true when the listener was registered
 */
export function off(name: string, listener: Listener): boolean;

/**
 * Returns the value in a form that messages can carry and from which `decode` restores it.
 *
 * @throws TypeError for a value that has no such form, for example a function or a Map; RangeError
 *     for an array that contains itself
 */
export function encode(value: readonly unknown[]): readonly Sendable[];
export function encode(value: unknown): Sendable;

/**
 * Returns the value that was encoded, by `encode` or by the suite.
 *
 * @throws TypeError, RangeError, SyntaxError or DOMException when the encoding is invalid
 */
export function decode(value: Received): unknown;

export as namespace VelmoraApp;
