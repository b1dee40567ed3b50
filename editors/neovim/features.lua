-- Tries each feature without a screen: nvim --headless -u NONE -S features.lua, with the environment variables QUOR (the
-- program), QUOR_EDITORS (the folder above), DECK (a file of a deck with WCONPROD, also an included one) and NAME (of a well
-- or group there). Prints what each feature shows; exits with 1 if one doesn't answer.

local editors = vim.env.QUOR_EDITORS
package.path = editors .. "/neovim/?.lua;" .. package.path
vim.opt.swapfile = false
require("quor").setup({ path = vim.env.QUOR, simulator = "Carrow" })

local function fail(what)
  io.write("no answer: " .. what .. "\n")
  os.exit(1)
end

local function wait(what, done)
  if not vim.wait(30000, done, 50) then
    fail(what)
  end
end

local function tryAll()
  vim.cmd("edit " .. vim.env.DECK)
  wait("the server", function()
    return #vim.lsp.buf_get_clients(0) > 0 or next(vim.lsp.buf_get_clients(0)) ~= nil
  end)

  local function ask(method, params)
    local answer = vim.lsp.buf_request_sync(0, method, params, 30000)
    for _, each in pairs(answer or {}) do
      if each.error then
        fail(method .. ": " .. each.error.message)
      end
      return each.result
    end
    fail(method)
  end

  local function at(text, offset)
    local line = vim.fn.search(text, "cw")
    if line == 0 then
      fail("the deck has no " .. text)
    end
    vim.fn.cursor(line, vim.fn.col(".") + (offset or 0))
    return vim.lsp.util.make_position_params(0, "utf-16")
  end

  local function show(what, text)
    io.write("== " .. what .. "\n" .. text:gsub("%s+$", "") .. "\n")
  end

  local function lines(list, line_of)
    local texts = {}
    for i, each in ipairs(list or {}) do
      if i <= 8 then
        table.insert(texts, line_of(each))
      end
    end
    return table.concat(texts, "\n")
  end

  -- A mistake, told where it is, and mended by a quick fix.
  at("^WCONPROD")
  local record = vim.fn.line(".")
  vim.api.nvim_buf_set_lines(0, record - 1, record, false, { "WCONPROF" })
  wait("a finding", function()
    return #vim.diagnostic.get(0) > 0
  end)
  show("diagnostics", lines(vim.diagnostic.get(0), function(each)
    return (each.lnum + 1) .. ":" .. (each.col + 1) .. ": " .. each.message
  end))
  local params = vim.lsp.util.make_range_params(0, "utf-16")
  params.range = { start = { line = record - 1, character = 0 }, ["end"] = { line = record - 1, character = 8 } }
  params.context = { diagnostics = {} }
  local actions = ask("textDocument/codeAction", params)
  show("quick fixes", lines(actions, function(each)
    return each.title
  end))
  for _, action in ipairs(actions) do
    if action.kind == "quickfix" and action.edit then
      vim.lsp.util.apply_workspace_edit(action.edit, "utf-16")
      break
    end
  end
  wait("no finding", function()
    return #vim.diagnostic.get(0) == 0
  end)
  show("the mended line", vim.fn.getline(record))

  show("hover", vim.lsp.util.convert_input_to_markdown_lines and table.concat(
    vim.lsp.util.convert_input_to_markdown_lines(ask("textDocument/hover", at("^WCONPROD")).contents), "\n"))
  local name = at([[\<]] .. vim.env.NAME .. [[\>]])
  show("definition", vim.inspect(ask("textDocument/definition", name)))
  name.context = { includeDeclaration = true }
  show("references", tostring(#ask("textDocument/references", name)))
  show("rename", lines(vim.split(vim.inspect(ask("textDocument/rename", vim.tbl_extend("force", name, { newName = "NEW1" }))), "\n"),
    function(each)
      return each
    end))
  show("signature", lines(ask("textDocument/signatureHelp", name).signatures, function(each)
    return each.label
  end))
  local completion = ask("textDocument/completion", at("^WCONPROD", 3))
  show("completion", lines(completion.items or completion, function(each)
    return each.label
  end))
  local document = { textDocument = vim.lsp.util.make_text_document_params() }
  show("outline", lines(ask("textDocument/documentSymbol", document), function(each)
    return each.name .. "  " .. (each.detail or "")
  end))
  show("folding", tostring(#ask("textDocument/foldingRange", document)) .. " ranges")
  show("code lenses", tostring(#ask("textDocument/codeLens", document)))
  show("formatting", tostring(#(ask("textDocument/formatting",
    vim.tbl_extend("force", document, { options = { tabSize = 2, insertSpaces = true } })) or {})) .. " edits")
  show("workspace symbols", lines(ask("workspace/symbol", { query = "P1" }), function(each)
    return each.name
  end))
  io.write("== done\n")
end

local isDone, reason = pcall(tryAll)
if not isDone then
  fail(reason)
end
vim.cmd("qall!")
