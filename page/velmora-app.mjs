// Exports the functions of velmora-app.js, for bundlers and for Chromium 61 and later.
import './velmora-app.js';

export const { request, on, off, encode, decode } = window.VelmoraApp;
