// The global object `app` that every page of the suite has: messages to the suite and callbacks for
// messages from it. docs/page-api.md holds the rules in full; the types say what a compiler can
// check of them.

declare namespace AppApi {
  /**
   * What a message carries from the page to the suite. Anything else in the array (`undefined`,
   * plain objects, functions, dates, maps, typed arrays, boxed values) is lost: null travels in its
   * place.
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
   * What a message carries from the suite to the page. Dictionaries and binary values of the suite
   * arrive as null.
   */
  type Received = string | number | boolean | null | Received[];

  /**
   * Called for each message of the registered name, with `this` being the global object.
   *
   * @param name the name of the message, which is the name that was registered
   * @param args the arguments of the message; a new array in each call
   * @returns true when the message is handled; every other result, none, and an exception mean that
   *     it is not. A promise is not true: a callback that is an async function handles nothing.
   */
  type MessageCallback = (name: string, args: Received[]) => boolean | void;

  interface App {
    /**
     * Sends a message to the suite. There is no acknowledgement.
     *
     * @param name any text but the empty one
     * @param args the arguments of the message; none when left out
     * @throws Error "Invalid method arguments" when the name is empty or no string
     */
    sendMessage(name: string, args?: readonly Sendable[]): void;

    /**
     * Registers the callback for messages of a name. The first registration of a name in a browser
     * stays, whichever of the browser's frames made it, and later ones are dropped without notice
     * until it is removed. It ends with the document that registered it.
     *
     * @param name any text, in its case; the empty one too
     * @throws Error "Invalid method arguments" when the name is no string or the callback is no
     *     function
     */
    setMessageCallback(name: string, callback: MessageCallback): void;

    /**
     * Removes the callback of a name, whichever of the browser's frames registered it.
     *
     * @returns true when there was one
     * @throws Error "Invalid method arguments" when the name is no string
     */
    removeMessageCallback(name: string): boolean;
  }
}

/** Present in every frame before the first script of the page runs; not present in workers. */
declare var app: AppApi.App;
