// Declares the global object `app` of every page of the suite: messages to the suite, and callbacks
// for messages from the suite. docs/page-api.md has the complete rules.

declare namespace AppApi {
  /**
   * A value that a message carries from the page to the suite. All other values in the array arrive
   * as null: `undefined`, plain objects, functions, dates, maps, typed arrays, boxed values.
   *
   * - A number in the range of a 32-bit integer, signed or unsigned, travels as a signed 32-bit
   *   integer: 2147483648 to 4294967295 arrive as negative numbers. Every other number travels as a
   *   double. NaN and the infinities arrive as 0.
   * - A lone surrogate in a string arrives as U+FFFD.
   * - An array that contains itself, or that is nested some hundred levels deep, ends the page's
   *   process. Up to 100 levels are safe.
   */
  type Sendable = string | number | boolean | null | readonly Sendable[];

  /**
   * A value that a message carries from the suite to the page. Dictionaries and binary values of
   * the suite arrive as null.
   */
  type Received = string | number | boolean | null | Received[];

  /**
   * Receives each message of the registered name. `this` is the global object.
   *
   * @param name the name of the message, which is the name that was registered
   * @param args the arguments of the message; a new array in each call
   * @returns true if the message is handled. Every other result, a missing result and an exception
   *     mean that it is not handled. A promise is not true: an async function handles nothing.
   */
  type MessageCallback = (name: string, args: Received[]) => boolean | void;

  interface App {
    /**
     * Sends a message to the suite, which does not acknowledge it.
     *
     * @param name any string but the empty one
     * @param args the arguments of the message; without them the message has no arguments
     * @throws Error "Invalid method arguments" if the name is empty or not a string
     */
    sendMessage(name: string, args?: readonly Sendable[]): void;

    /**
     * Registers the callback for messages of a name. The first registration of a name in a browser
     * stays, whichever of the browser's frames made it. Later registrations are dropped without
     * notice until the first one is removed. A registration ends with the document that made it.
     *
     * @param name any string, including the empty one; case counts
     * @throws Error "Invalid method arguments" if the name is not a string or the callback is not a
     *     function
     */
    setMessageCallback(name: string, callback: MessageCallback): void;

    /**
     * Removes the callback of a name, whichever of the browser's frames registered it.
     *
     * @returns true if there was one
     * @throws Error "Invalid method arguments" if the name is not a string
     */
    removeMessageCallback(name: string): boolean;
  }
}

/** Exists in every frame before the first script of the page runs, but not in workers. */
declare var app: AppApi.App;
