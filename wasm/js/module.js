// The module and its memory: texts and numbers in, answers out.

/** What the C++ library asks of a system and a page does not have. */
function makeSystem(memory) {
  const refuse = () => 8; // no such file
  return {
    args_get: () => 0,
    args_sizes_get: (count, size) => { memory().setUint32(count, 0, true); memory().setUint32(size, 0, true); return 0; },
    clock_time_get: (clock, precision, time) => {
      memory().setBigUint64(time, BigInt(Date.now()) * 1000000n, true);
      return 0;
    },
    environ_get: () => 0,
    environ_sizes_get: (count, size) => { memory().setUint32(count, 0, true); memory().setUint32(size, 0, true); return 0; },
    fd_close: refuse, fd_fdstat_get: refuse, fd_prestat_get: refuse, fd_prestat_dir_name: refuse, fd_read: refuse,
    fd_seek: refuse, fd_fdstat_set_flags: refuse, path_open: refuse,
    fd_write: (file, parts, count, written) => {
      let size = 0;
      for (let i = 0; i < count; ++i) size += memory().getUint32(parts + 8 * i + 4, true);
      memory().setUint32(written, size, true);
      return 0;
    },
    random_get: (address, size) => {
      globalThis.crypto.getRandomValues(new Uint8Array(memory().buffer, address, size));
      return 0;
    },
    proc_exit: (code) => { throw new Error(`the charts ended with ${code}`); },
    sched_yield: () => 0,
  };
}

export class Module {
  /** @param compiled a WebAssembly.Module @param page what web_page.h imports, with texts as strings */
  constructor(compiled, page) {
    this.encoder = new TextEncoder();
    this.decoder = new TextDecoder();
    const text = (address, size) => this.decoder.decode(new Uint8Array(this.memory.buffer, address, size));
    const imports = {
      measureText: (at, size, family, familySize, points, style) =>
        page.measureText(text(at, size), text(family, familySize), points, style),
      lineHeight: (family, familySize, points, style) => page.lineHeight(text(family, familySize), points, style),
      requestFrame: page.requestFrame,
      showCursor: page.showCursor,
      notify: (view, at, size) => page.notify(view, text(at, size)),
      writeClipboard: (at, size) => page.writeClipboard(text(at, size)),
    };
    const instance = new WebAssembly.Instance(compiled, {
      page: imports, wasi_snapshot_preview1: makeSystem(() => new DataView(this.memory.buffer)),
    });
    this.exports = instance.exports;
    this.memory = instance.exports.memory;
    this.exports._initialize();
  }

  /** Calls use(address, size) with the text in the module's memory. */
  withText(text, use) {
    const bytes = this.encoder.encode(text);
    return this.withBytes(bytes, (address) => use(address, bytes.length));
  }

  withBytes(bytes, use) {
    const address = this.allocate(bytes.byteLength);
    new Uint8Array(this.memory.buffer, address, bytes.byteLength)
      .set(new Uint8Array(bytes.buffer, bytes.byteOffset, bytes.byteLength));
    try {
      return use(address);
    } finally {
      this.exports.release(address);
    }
  }

  allocate(size) {
    const address = this.exports.allocate(Math.max(size, 1));
    if (address === 0) throw new RangeError('no memory');
    return address;
  }

  /** @return the text that the last call answered */
  answer() {
    return this.decoder.decode(new Uint8Array(this.memory.buffer, this.exports.answerAddress(), this.exports.answerSize()));
  }
}
