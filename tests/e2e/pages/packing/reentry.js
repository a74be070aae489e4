'use strict';

cases('reentry', {
  'getter sends another array': (t) => {
    const array = t.getter(t.make(100), 50, () => {
      app.sendMessage('inner', t.make(100, (i) => `${i}`));
      return 'sent';
    });
    app.sendMessage('up', array);
  },
  'getter sends the same array': (t) => {
    let depth = 0;
    const array = t.getter(t.make(100), 50, () => {
      if (++depth < 5) app.sendMessage(`depth ${depth}`, array);
      return depth;
    });
    app.sendMessage('up', array);
  },
  'several getters send': (t) => {
    const array = t.make(100);
    for (const place of [0, 20, 40, 99]) {
      t.getter(array, place, () => {
        app.sendMessage('inner', t.make(place + 1));
        return place + 0.5;
      });
    }
    app.sendMessage('up', array);
  },
  'getters of nested arrays send nested arrays': (t) => {
    const inner = t.getter(t.make(20), 10, () => {
      app.sendMessage('inner', t.make(30, (i) => [i]));
      return ['sent'];
    });
    app.sendMessage('up', t.make(30, (i) => i % 10 ? [i] : inner));
  },
  'getter sends an array with a getter that throws': (t) => {
    const inner = t.getter(t.make(50), 25, () => { throw new Error('inner'); });
    const array = t.getter(t.make(100), 50, () => {
      app.sendMessage('inner', inner);
      throw new Error('outer');
    });
    app.sendMessage('up', array);
    app.sendMessage('up', t.make(100));
  },
  'getter sends to itself': async (t) => {
    app.setMessageCallback('down', (name, array) => t.log('received', array));
    const array = t.getter(t.make(100), 50, () => {
      app.sendMessage('host.send', ['down', t.make(20)]);
      t.log('sent');
    });
    app.sendMessage('up', array);
    t.log('returned');
    await t.settled();
  },
  'getter registers and removes callbacks': async (t) => {
    const array = t.make(100);
    t.getter(array, 10, () => app.setMessageCallback('down', (name, list) => t.log('first', list)));
    t.getter(array, 20, () => app.removeMessageCallback('down'));
    t.getter(array, 30, () => app.setMessageCallback('down', (name, list) => t.log('last', list)));
    t.getter(array, 40, () => app.removeMessageCallback('none'));
    app.sendMessage('up', array);
    await t.post('down', t.make(20));
  },
  'getter removes its frame': (t) => {
    const array = t.make(100);
    t.getter(array, 50, () => { frameElement.remove(); return 'removed'; });
    t.getter(array, 51, () => { t.log('getter after the removal'); return 'after'; });
    t.log('returns', app.sendMessage('up', array));
    return t.settled();
  },
  'getter of a nested array removes its frame': (t) => {
    const inner = t.getter(t.make(20), 10, () => { frameElement.remove(); return 'removed'; });
    app.sendMessage('up', t.make(100, (i) => i === 50 ? inner : [i]));
    return t.settled();
  },
  'getter removes its frame and throws': (t) => {
    const array = t.getter(t.make(100), 50, () => {
      frameElement.remove();
      throw new Error('from a removed frame');
    });
    t.log('returns', app.sendMessage('up', array));
    return t.settled();
  },
  'getter removes its frame and sends': (t) => {
    const array = t.getter(t.make(100), 50, () => {
      frameElement.remove();
      app.sendMessage('inner', t.make(20));
      return 'removed';
    });
    app.sendMessage('up', array);
    app.sendMessage('up', t.make(20));
    return t.settled();
  },
  'getter removes another frame': async (t) => {
    const frame = await t.addFrame();
    const other = frame.contentWindow.eval('(i) => [i, String(i)]');
    const array = t.make(100, (i) => other(i));
    app.sendMessage('up', t.getter(array, 50, () => { frame.remove(); return 'removed'; }));
  },
  'getter navigates': (t) => {
    const array = t.getter(t.make(100), 50, () => {
      location.href = 'about:blank';
      return 'navigated';
    });
    app.sendMessage('up', array);
    return t.navigated();
  },
  'getter navigates with document.open': async (t) => {
    const array = t.make(100);
    t.getter(array, 50, () => {
      document.open();
      document.write('<p>another document');
      document.close();
      return 'rewritten';
    });
    t.getter(array, 60, () => document.body.textContent);
    app.sendMessage('up', array);
    await t.settled();
    app.sendMessage('up', t.make(20));
  },
  'getter runs a script': (t) => {
    const array = t.getter(t.make(100), 50, () => {
      const script = document.createElement('script');
      script.textContent = 'app.sendMessage("script", [1, 2, 3, "written by a getter"])';
      document.body.appendChild(script);
      return eval('[1, 2]');
    });
    app.sendMessage('up', array);
  },
  'getter shrinks the array': (t) => {
    for (const length of [0, 1, 20, 50, 51, 52, 99]) {
      const array = t.make(100);
      t.getter(array, 50, () => { array.length = length; return 'shrunk'; });
      app.sendMessage('up', array);
    }
  },
  'getter shrinks the array to itself': (t) => {
    const array = t.getter(t.make(100), 99, () => { array.length = 99; return 'shrunk'; });
    app.sendMessage('up', array);
    const one = t.make(100);
    t.getter(one, 0, () => { one.length = 0; one[5] = 'five'; return 'first'; });
    app.sendMessage('up', one);
  },
  'getter grows the array': (t) => {
    const array = t.getter(t.make(100), 50, () => { array.push('new', 'new'); return 'grown'; });
    app.sendMessage('up', array);
    app.sendMessage('up', array);
    const large = t.getter(t.make(100), 50, () => { large.length = 1e9; return 'grown'; });
    app.sendMessage('up', large);
  },
  'getter replaces later elements': (t) => {
    const array = t.make(100);
    const replacements = [[1, [2]], t.traced([1], 'proxy'), 'text', 0.5, undefined, null, {}, true];
    t.getter(array, 10, () => {
      replacements.forEach((value, i) => { array[20 + i * 5] = value; });
      return 'replaced';
    });
    app.sendMessage('up', array);
  },
  'getter replaces arrays by Proxies and back': (t) => {
    const array = t.make(100, (i) => [i]);
    const proxy = t.traced([1], 'proxy');
    t.getter(array, 10, () => { for (let i = 11; i < 100; i += 2) array[i] = proxy; return 'a'; });
    t.getter(array, 50, () => { for (let i = 51; i < 100; i += 2) array[i] = ['b']; return 'b'; });
    app.sendMessage('up', array);
  },
  'getter of a nested array replaces elements of the outer one': (t) => {
    const array = t.make(100, (i) => [i]);
    const proxy = t.traced([1], 'proxy');
    t.getter(array[10], 0, () => {
      for (let i = 9; i < 100; i += 3) array[i] = i % 2 ? proxy : `replaced ${i}`;
      return 'inner';
    });
    app.sendMessage('up', array);
  },
  'getter replaces earlier elements': (t) => {
    const array = t.make(100, (i) => [i]);
    t.getter(array, 50, () => {
      array[10].push('late');
      array[20] = 'late';
      array[70].push('in time');
      return 'replaced';
    });
    app.sendMessage('up', array);
  },
  'getter adds getters and deletes elements': (t) => {
    const array = t.make(100);
    t.getter(array, 10, () => {
      t.getter(array, 60, () => { t.log('added'); return 'added'; });
      t.getter(array, 5, () => t.log('too late'));
      delete array[61];
      delete array[70];
      return 'first';
    });
    t.getter(array, 61, () => t.log('deleted'));
    app.sendMessage('up', array);
  },
  'getter removes itself': (t) => {
    const array = t.make(100);
    t.getter(array, 50, () => { delete array[50]; return 'once'; });
    app.sendMessage('up', array);
    app.sendMessage('up', array);
  },
  'getter shifts and sorts the array': (t) => {
    const array = t.make(100);
    t.getter(array, 20, () => { delete array[20]; array.shift(); return 'shifted'; });
    app.sendMessage('up', array);
    const other = t.make(100);
    t.getter(other, 20, () => { delete other[20]; other.reverse(); return 'reversed'; });
    app.sendMessage('up', other);
  },
  'getter changes prototypes': (t) => {
    const array = new Array(100);
    t.getter(array, 20, () => {
      Object.setPrototypeOf(array, {30: 'of the new prototype'});
      Array.prototype[40] = 'not seen';
      return 'changed';
    });
    app.sendMessage('up', array);
    const other = new Array(100);
    t.getter(other, 20, () => { Object.setPrototypeOf(other, t.traced([], 'proxy')); });
    app.sendMessage('up', other);
  },
  'getter freezes the array': (t) => {
    const array = t.getter(t.make(100), 20, () => { Object.freeze(array); return 'frozen'; });
    app.sendMessage('up', array);
  },
  'getter throws after each change': (t) => {
    const array = t.make(100);
    t.getter(array, 20, () => { array[21] = 'new'; throw new Error('first'); });
    t.getter(array, 40, () => { array.length = 60; throw new Error('second'); });
    t.getter(array, 80, () => t.log('never'));
    app.sendMessage('up', array);
  },
  'getter tampers with built-ins': (t) => {
    const array = t.make(100, (i) => [i, `${i}`, i / 3][i % 3]);
    t.getter(array, 20, () => {
      Array.isArray = () => { t.log('isArray'); return true; };
      String.fromCharCode = () => { t.log('fromCharCode'); return 'x'; };
      JSON.parse = JSON.stringify = () => { t.log('JSON'); };
      Array.prototype.push = () => { t.log('push'); };
      Object.prototype.toJSON = () => { t.log('toJSON'); };
      return 'tampered';
    });
    app.sendMessage('up', array);
    app.sendMessage('up', t.make(100, (i) => [i, [`${i}`]]));
  },
  'callback sends what it received': async (t) => {
    app.setMessageCallback('down', (name, array) => { app.sendMessage('up', array); return true; });
    for (const size of [1, 10, 16, 100]) await t.post('down', t.make(size, (i) => [i, `${i}`]));
  },
  'callback that was called by a message of a getter': async (t) => {
    let rounds = 0;
    app.setMessageCallback('down', (name, array) => {
      t.log('received', array);
      if (++rounds === 4) return;
      app.sendMessage('up', t.getter(array, 10, () => {
        app.sendMessage('host.send', ['down', t.make(20, (i) => i * rounds)]);
        return 'sent';
      }));
    });
    await t.post('down', t.make(20));
    for (let i = 0; i < 4; ++i) await t.settled();
  },
  'callback that throws': async (t) => {
    app.setMessageCallback('down', function callback(name, array) {
      t.log('received', array);
      throw new Error('from a callback');
    });
    await t.post('down', t.make(100));
    await t.post('down', t.make(5));
  },
  'event handler called by a getter': (t) => {
    const array = t.make(100);
    addEventListener('custom', () => {
      app.sendMessage('inner', t.make(50));
      throw new Error('from the handler');
    });
    t.getter(array, 50, () => dispatchEvent(new CustomEvent('custom')));
    app.sendMessage('up', array);
  },
});
